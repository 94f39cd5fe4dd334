#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ormisk {

// The form in which named values stand in a stream, apart from any stream: the same on every machine. It begins with a
// header (the letters "OmSt", the version, the length of the rest), and each value is a record that is found and known
// to be sound by itself, so that damage to one costs no other. docs/stored-settings.md tells the bytes.

enum class StoredType : std::uint8_t {
    Nothing = 0, // no object
    Long = 1,    // 4 bytes
    Single = 2,  // 4 bytes
    Boolean = 3, // 1 byte
    Text = 4,    // UTF-16
    Object = 5,  // the identifier of its class, and what it writes itself
};

struct StoredValue {
    std::string name;
    StoredType type = StoredType::Nothing;
    std::vector<std::uint8_t> data;

    bool operator==(const StoredValue&) const = default;
};

inline constexpr std::uint16_t kStoredVersion = 1;
inline constexpr std::size_t kStoredHeader = 10; // bytes
// No longer store is read, and no longer value is written.
inline constexpr std::size_t kMostStored = 64 * 1024 * 1024;

// A number, low byte first.
void PutNumber(std::vector<std::uint8_t>& to, std::uint32_t number, int bytes);
std::uint32_t TakeNumber(std::span<const std::uint8_t> from); // at most 4 bytes

// Values with a name of more than 255 letters, or of more than kMostStored bytes, are left out.
std::vector<std::uint8_t> EncodeStored(const std::vector<StoredValue>& values);
// How many bytes follow the header; none when this is no header. A later version is read as far as it is known.
std::optional<std::size_t> StoredLength(std::span<const std::uint8_t> header);
// The sound records of what follows the header, in their order. Of records of one name the first counts.
std::vector<StoredValue> DecodeStored(std::span<const std::uint8_t> records);

} // namespace ormisk
