#include "rooms/BanRequest.h"

#include "base/Text.h"

#include <array>

namespace halyard {

namespace {

/// In the order of the kinds.
constexpr std::array<const char*, 11> Words{"ban",  "unban",    "unbankick", "kick", "ab",  "aw",
                                            "gban", "autogban", "char",      "icq",  "tban"};

} // namespace

const char* WordOf(BanKind kind) { return Words[static_cast<std::size_t>(kind)]; }

std::optional<BanKind> BanKindOf(std::string_view word) {
    for (std::size_t index = 0; index < Words.size(); ++index)
        if (word == Words[index]) return static_cast<BanKind>(index);
    return std::nullopt;
}

std::string BanRecord(BanKind kind, std::int16_t intChatIndex, std::int32_t lngRequestID,
                      const std::string& strUser, const std::string& strOther) {
    return std::string(WordOf(kind)) + ":" + std::to_string(intChatIndex) + ":" +
           std::to_string(lngRequestID) + ":" + strUser + ":" + strOther;
}

std::optional<BanRecordFields> ReadBanRecord(const std::string& record) {
    if (record.empty()) return std::nullopt;
    auto fields = Split(record, ":", 5);
    fields.resize(5);
    return BanRecordFields{BanKindOf(fields[0]), ToInt16(fields[1]), fields[2], fields[3], fields[4]};
}

} // namespace halyard
