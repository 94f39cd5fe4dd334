#pragma once

#include "win/Geometry.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

// What the editors with dialogs of the system decide, apart from any window.
namespace ormisk {

// Of a path row: the texts that it sets, and the flags among them that are numbers.
struct PathParams {
    std::wstring Filter;
    std::wstring InitialDir;
    std::wstring DefaultExt;
    std::wstring DialogCaption;
    std::optional<std::uint32_t> FileFlags;
    std::optional<std::uint32_t> FolderFlags; // of a file row, too
};

// What a dialog is opened with.
struct PathDialog {
    bool File = false; // else of folders
    std::wstring Filter;
    std::wstring InitialDir;
    std::wstring DefaultExt;
    std::wstring Caption;
    std::uint32_t Flags = 0;
};
PathDialog DescribePathDialog(bool file, const PathParams& params);

// The flags of a file dialog: at least that the file has to exist, and none that want more than a number.
std::uint32_t FileDialogFlags(std::uint32_t flags);

// A filter with a bar between its parts as the file dialog wants it: zeros between them and two at the end.
std::wstring DialogFilter(const std::wstring& filter);

// The name in front of a buffer that a file dialog writes to. A text that is no path for its length is left out.
inline constexpr std::size_t kFileBuffer = 32768;
std::wstring FileBuffer(const std::wstring& name);

// Up to the first zero character.
std::wstring CutAtZero(const std::wstring& text);

// The height of a font for the font dialog, for a screen of so many dots an inch.
long DialogFontHeight(double points, int dpi);
// Tenths of a point.
int DialogPointSize(double points);

// Whether the bytes that a host answers with are others than those that an editor has. No bytes are something else than
// bytes.
using Bytes = std::optional<std::span<const unsigned char>>;
bool AreOtherBytes(const Bytes& present, const Bytes& answer);

// Where the windows of an editor with a button stand: the field in its parent, box and button in the field.
struct FieldPlaces {
    Rect Field;
    Rect Box;
    Rect Button;

    bool operator==(const FieldPlaces&) const = default;
};
FieldPlaces PlaceCaption(const Rect& cell, long buttonWidth);
FieldPlaces PlacePicture(const Rect& cell, long buttonWidth);
FieldPlaces PlacePath(const Rect& cell, long scrollBarWidth);

} // namespace ormisk
