#pragma once

#include <utility>

namespace ormisk {

// Another value for a field, for the life of the guard.
template <class T> class Meanwhile {
public:
    Meanwhile(T& field, T value) : m_Field(field), m_Before(std::exchange(field, std::move(value))) {}
    Meanwhile(const Meanwhile&) = delete;
    Meanwhile& operator=(const Meanwhile&) = delete;
    ~Meanwhile() { m_Field = std::move(m_Before); }

private:
    T& m_Field;
    T m_Before;
};

} // namespace ormisk
