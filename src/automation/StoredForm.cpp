#include "automation/StoredForm.h"

#include <algorithm>
#include <array>

namespace ormisk {

namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr std::uint8_t kLetters[] = {'O', 'm', 'S', 't'};
// Of a record: its mark, the length of the name, the type, the length of the data, and at its end the checksum.
constexpr std::uint8_t kMark[] = {0xA5, 'V'};
constexpr std::size_t kRecordHead = 8;
constexpr std::size_t kChecksum = 4;
// How often each byte is checked, on the average, and how many values are found, at most.
constexpr std::size_t kMostChecked = 16;
constexpr std::size_t kMostValues = 1000;

constexpr std::array<std::uint32_t, 256> MakeCrcTable() {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t i = 0; i < table.size(); ++i) {
        std::uint32_t value = i;
        for (int bit = 0; bit < 8; ++bit)
            value = value & 1 ? 0xEDB88320U ^ (value >> 1) : value >> 1;
        table[i] = value;
    }
    return table;
}
constexpr std::array<std::uint32_t, 256> kCrcTable = MakeCrcTable();

// CRC-32 as in IEEE 802.3.
std::uint32_t Checksum(Bytes bytes) {
    std::uint32_t value = ~0U;
    for (const std::uint8_t byte : bytes)
        value = kCrcTable[(value ^ byte) & 0xFF] ^ (value >> 8);
    return ~value;
}

bool IsKnown(std::uint8_t type) { return type <= static_cast<std::uint8_t>(StoredType::Object); }

// The record at the beginning of these bytes, and its length in all.
struct Found {
    StoredValue value;
    std::size_t length = 0;
    bool known = false; // of a type that this version has
};
std::optional<Found> RecordAt(Bytes bytes, std::size_t& work) {
    if (bytes.size() < kRecordHead + kChecksum || !std::equal(std::begin(kMark), std::end(kMark), bytes.begin()))
        return std::nullopt;
    const std::size_t name = bytes[2];
    const std::size_t data = TakeNumber(bytes.subspan(4, 4));
    const std::size_t rest = bytes.size() - kRecordHead - kChecksum;
    if (name == 0 || name > rest || data > rest - name)
        return std::nullopt;
    const std::size_t checked = kRecordHead + name + data;
    if (checked > work)
        return std::nullopt;
    work -= checked;
    if (Checksum(bytes.first(checked)) != TakeNumber(bytes.subspan(checked, kChecksum)))
        return std::nullopt;
    Found found;
    found.length = checked + kChecksum;
    found.known = IsKnown(bytes[3]);
    const auto text = bytes.subspan(kRecordHead, name);
    found.value.name.assign(text.begin(), text.end());
    found.value.type = static_cast<StoredType>(bytes[3]);
    const auto content = bytes.subspan(kRecordHead + name, data);
    found.value.data.assign(content.begin(), content.end());
    return found;
}

} // namespace

void PutNumber(std::vector<std::uint8_t>& to, std::uint32_t number, int bytes) {
    for (int i = 0; i < bytes; ++i)
        to.push_back(static_cast<std::uint8_t>(number >> (8 * i)));
}

std::uint32_t TakeNumber(Bytes from) {
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < from.size(); ++i)
        number |= static_cast<std::uint32_t>(from[i]) << (8 * i);
    return number;
}

std::vector<std::uint8_t> EncodeStored(const std::vector<StoredValue>& values) {
    std::vector<std::uint8_t> records;
    for (const StoredValue& value : values) {
        const std::size_t length = kRecordHead + value.name.size() + value.data.size() + kChecksum;
        if (value.name.empty() || value.name.size() > 255 || length > kMostStored - records.size())
            continue;
        const std::size_t start = records.size();
        records.insert(records.end(), std::begin(kMark), std::end(kMark));
        records.push_back(static_cast<std::uint8_t>(value.name.size()));
        records.push_back(static_cast<std::uint8_t>(value.type));
        PutNumber(records, static_cast<std::uint32_t>(value.data.size()), 4);
        records.insert(records.end(), value.name.begin(), value.name.end());
        records.insert(records.end(), value.data.begin(), value.data.end());
        PutNumber(records, Checksum(Bytes(records).subspan(start)), kChecksum);
    }
    std::vector<std::uint8_t> all(std::begin(kLetters), std::end(kLetters));
    PutNumber(all, kStoredVersion, 2);
    PutNumber(all, static_cast<std::uint32_t>(records.size()), 4);
    all.insert(all.end(), records.begin(), records.end());
    return all;
}

std::optional<std::size_t> StoredLength(Bytes header) {
    if (header.size() < kStoredHeader || !std::equal(std::begin(kLetters), std::end(kLetters), header.begin()) ||
        TakeNumber(header.subspan(4, 2)) == 0)
        return std::nullopt;
    return std::min<std::size_t>(TakeNumber(header.subspan(6, 4)), kMostStored);
}

// Behind a damaged record the next sound one is looked for byte by byte; the work on heads that promise much and keep
// nothing has an end.
std::vector<StoredValue> DecodeStored(Bytes records) {
    std::vector<StoredValue> values;
    std::size_t work = kMostChecked * records.size();
    while (!records.empty() && values.size() < kMostValues) {
        auto found = RecordAt(records, work);
        records = records.subspan(found ? found->length : 1);
        if (found && found->known && std::ranges::find(values, found->value.name, &StoredValue::name) == values.end())
            values.push_back(std::move(found->value));
    }
    return values;
}

} // namespace ormisk
