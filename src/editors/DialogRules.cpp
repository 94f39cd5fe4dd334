#include "editors/DialogRules.h"

#include "platform/Rounding.h"

#include <algorithm>

namespace ormisk {
namespace {

// Of the flags of the file dialog: those that come with a procedure or a template, and that the file has to exist.
constexpr std::uint32_t kNeedsMore = 0x20 | 0x40 | 0x80;
constexpr std::uint32_t kFileMustExist = 0x1000;
// Of the folder dialog: only folders of the file system, in the newer look.
constexpr std::uint32_t kFolderFlags = 0x1 | 0x40;

constexpr long kGap = 2;

} // namespace

PathDialog DescribePathDialog(bool file, const PathParams& params) {
    PathDialog dialog;
    dialog.File = file;
    dialog.Caption = file ? L"Select a file" : L"Select a folder";
    dialog.Flags = kFolderFlags;
    if (file) {
        dialog.Filter = params.Filter;
        dialog.InitialDir = params.InitialDir;
        dialog.DefaultExt = params.DefaultExt;
        dialog.Flags = params.FileFlags.value_or(0);
    }
    if (!params.DialogCaption.empty())
        dialog.Caption = params.DialogCaption;
    dialog.Flags = params.FolderFlags.value_or(dialog.Flags);
    return dialog;
}

std::uint32_t FileDialogFlags(std::uint32_t flags) { return flags != 0 ? flags & ~kNeedsMore : kFileMustExist; }

std::wstring DialogFilter(const std::wstring& filter) {
    std::wstring parts = filter.empty() ? L"All Files (*.*)" : filter;
    std::ranges::replace(parts, L'|', L'\0');
    parts.append(2, L'\0');
    return parts;
}

std::wstring FileBuffer(const std::wstring& name) {
    std::wstring buffer = CutAtZero(name);
    if (buffer.size() >= kFileBuffer - 1)
        buffer.clear();
    buffer.resize(kFileBuffer);
    return buffer;
}

std::wstring CutAtZero(const std::wstring& text) { return text.substr(0, text.find(L'\0')); }

long DialogFontHeight(double points, int dpi) {
    const long twips = RoundToLong(points * 20);
    const long twipsPerPixel = std::max(1440L / std::max(dpi, 1), 1L);
    return -(twips / twipsPerPixel);
}

int DialogPointSize(double points) { return static_cast<int>(RoundToLong(points * 10)); }

bool AreOtherBytes(const Bytes& present, const Bytes& answer) {
    return !present || !answer || !std::ranges::equal(*present, *answer);
}

FieldPlaces PlaceCaption(const Rect& cell, long buttonWidth) {
    FieldPlaces places;
    places.Field = {cell.left + kGap, cell.top, cell.right, cell.bottom};
    const long width = std::max(places.Field.Width(), 0L);
    places.Button = {width - buttonWidth, 0, width, cell.Height()};
    return places;
}

FieldPlaces PlacePicture(const Rect& cell, long buttonWidth) {
    FieldPlaces places;
    places.Field = cell;
    const long edge = cell.Width() - buttonWidth;
    places.Box = {0, kGap, std::max(edge, 0L), std::max(cell.Height(), kGap)};
    places.Button = {edge, 0, cell.Width(), cell.Height()};
    return places;
}

FieldPlaces PlacePath(const Rect& cell, long scrollBarWidth) {
    FieldPlaces places;
    places.Field = cell;
    const long button = std::min(RoundToLong(static_cast<double>(scrollBarWidth) * 1.1), cell.Width());
    const long edge = cell.Width() - button;
    places.Button = {edge, 0, cell.Width(), cell.Height()};
    places.Box = {kGap, kGap, std::max(edge, kGap), std::max(cell.Height(), kGap)};
    return places;
}

} // namespace ormisk
