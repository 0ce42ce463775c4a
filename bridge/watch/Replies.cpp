#include "bridge/watch/Replies.h"

namespace halyard {

namespace {

struct Exchange {
    std::uint32_t asks, answers, refuses; ///< family and subtype; the third is the family's error
    bool always = true;                   ///< false: some services answer it and some don't
};

constexpr std::array<Exchange, 12> exchanges{{
    {0x000E0005, 0x000E0006, 0x000E0001},        // a line, which the room says to its author too
    {0x000E0024, 0x000E0001, 0x000E0001, false}, // a ban, a ban's end, a room's closing
    {0x000E0025, 0x000E0001, 0x000E0001, false},
    {0x000E0023, 0x000E0001, 0x000E0001, false},
    {0x00010017, 0x00010018, 0x00010001},        // versions
    {0x00010006, 0x00010007, 0x00010001},        // rate classes
    {0x0001000E, 0x0001000F, 0x00010001, false}, // own information
    {0x00010004, 0x00010005, 0x00010001},        // the way to a service
    {0x000D0002, 0x000D0009, 0x000D0001},        // navigation: its terms, and a room
    {0x000D0008, 0x000D0009, 0x000D0001},
    {0x00170006, 0x00170007, 0x00170003}, // sign-on: the key, and the login
    {0x00170002, 0x00170003, 0x00170003},
}};

std::uint32_t KeyOf(std::string_view snac) {
    if (snac.size() < 4) return 0;
    std::uint32_t key = 0;
    for (const char c : snac.substr(0, 4)) key = key << 8 | static_cast<unsigned char>(c);
    return key;
}

} // namespace

void Replies::Sent(std::string_view snac, std::int64_t now) {
    static_assert(exchanges.size() == Kinds);
    const auto key = KeyOf(snac);
    for (std::size_t kind = 0; kind < Kinds; ++kind) {
        if (exchanges[kind].asks != key) continue;
        if (asked[kind] == 0) asked[kind] = now, ++owed;
        if (exchanges[kind].always && silentSince < 0) silentSince = now;
        return;
    }
}

std::int64_t Replies::Find(std::string_view snac) {
    const auto key = KeyOf(snac);
    for (std::size_t kind = 0; kind < Kinds; ++kind) {
        if (asked[kind] == 0 || (exchanges[kind].answers != key && exchanges[kind].refuses != key)) continue;
        const auto when = asked[kind];
        asked[kind] = 0;
        --owed;
        return when;
    }
    return -1;
}

} // namespace halyard
