#pragma once

#include "Bitmap.h"

#include <string>
#include <vector>

namespace ormisk {

// Pictures with captions, to be laid side by side in one.
class ContactSheet {
public:
    void Add(Bitmap picture, const std::wstring& caption);
    int Count() const { return static_cast<int>(m_Pictures.size()); }

    // All of them in the order in which they came, in rows of so many.
    Bitmap Compose(int columns) const;

    void Clear() { m_Pictures.clear(); }

private:
    struct Picture {
        Bitmap bitmap;
        SIZE size = {};
        std::wstring caption;
    };

    // Where each picture goes, its caption above it, and in `whole` what they take together.
    std::vector<POINT> Places(int columns, SIZE& whole) const;

    std::vector<Picture> m_Pictures;
};

} // namespace ormisk
