#pragma once

#include <cstddef>
#include <utility>

namespace ormisk {

// Counted pointer to an object of our own. One thread; a COM object has its own count and a ComPtr instead.
template <class T> class Ref;

// The base of what a Ref points to: holds the count. The last Ref deletes the object.
class RefCounted {
protected:
    RefCounted() = default;
    ~RefCounted() = default;
    RefCounted(const RefCounted&) = delete;
    RefCounted& operator=(const RefCounted&) = delete;

private:
    template <class T> friend class Ref;
    long m_References = 0;
};

template <class T> class Ref {
public:
    Ref() = default;
    Ref(std::nullptr_t) {}
    explicit Ref(T* object) : m_Object(object) { Hold(); }
    Ref(const Ref& other) : m_Object(other.m_Object) { Hold(); }
    Ref(Ref&& other) noexcept : m_Object(std::exchange(other.m_Object, nullptr)) {}
    ~Ref() { LetGo(m_Object); }
    Ref& operator=(Ref other) noexcept {
        std::swap(m_Object, other.m_Object);
        return *this;
    }

    T* Get() const { return m_Object; }
    T* operator->() const { return m_Object; }
    T& operator*() const { return *m_Object; }
    explicit operator bool() const { return m_Object != nullptr; }
    friend bool operator==(const Ref& a, const Ref& b) { return a.m_Object == b.m_Object; }

private:
    void Hold() const {
        if (m_Object)
            ++m_Object->RefCounted::m_References;
    }
    static void LetGo(T* object) {
        if (object && --object->RefCounted::m_References == 0)
            delete object;
    }

    T* m_Object = nullptr;
};

template <class T, class... Args> Ref<T> MakeRef(Args&&... args) { return Ref<T>(new T(std::forward<Args>(args)...)); }

} // namespace ormisk
