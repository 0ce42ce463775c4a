#include "base/OccurrenceIndex.h"

#include "base/Text.h"

#include <algorithm>
#include <bit>
#include <limits>
#include <map>
#include <optional>

namespace halyard {

namespace {

constexpr std::uint64_t base = 0x9E3779B97F4A7C15;  // of the polynomial; odd
constexpr std::uint64_t mixer = 0xD6E8FEB86659FD93; // spreads a hash over the top bits
constexpr std::size_t shortestHead = 8;
constexpr std::size_t smallestFilter = 64; // words
constexpr std::size_t marksPerWord = 4; // at most; then about one piece in fifty passes the filter by chance

std::uint64_t Extend(std::uint64_t hash, char c) {
    return hash * base + static_cast<unsigned char>(c) + 1; // plus one, so that zero bytes count
}

std::uint64_t HashOf(std::string_view text) {
    std::uint64_t hash = 0;
    for (char c : text) hash = Extend(hash, c);
    return hash;
}

/// The hashes of all pieces of a text in lower case, each from the hashes of two heads of it.
class PieceHashes {
  public:
    explicit PieceHashes(std::string_view text) {
        heads.reserve(text.size() + 1);
        powers.reserve(text.size() + 1);
        heads.push_back(0);
        powers.push_back(1);
        for (char c : text) {
            heads.push_back(Extend(heads.back(), LowerChar(c)));
            powers.push_back(powers.back() * base);
        }
    }
    std::uint64_t At(std::size_t start, std::size_t length) const {
        return heads[start + length] - heads[start] * powers[length];
    }

  private:
    std::vector<std::uint64_t> heads;
    std::vector<std::uint64_t> powers;
};

/// Two bits of one word of the filter, chosen by the highest bits of a mixed hash.
std::uint64_t BitsOf(std::uint64_t mixed) {
    return std::uint64_t{1} << (mixed >> 52 & 63) | std::uint64_t{1} << (mixed >> 58);
}

std::size_t WordOf(std::uint64_t mixed, std::size_t words) {
    return static_cast<std::size_t>(mixed >> 24) & (words - 1);
}

} // namespace

OccurrenceIndex::OccurrenceIndex(PatternOf pattern) : patternOf(pattern), filter(smallestFilter) {}

void OccurrenceIndex::Add(const std::string& entry) {
    auto pattern = patternOf(entry);
    const auto id = entries.Take();
    entries[id] = {&entry, ++lastOrder};
    byHash.Add(HashOf(pattern), id);
    CountLength(pattern.size());
    MarkEntry(pattern);
    if (marks > filter.size() * marksPerWord) RebuildFilter();
}

void OccurrenceIndex::Remove(std::string_view entry) {
    auto pattern = patternOf(entry);
    const auto hash = HashOf(pattern);
    std::optional<Id> found;
    byHash.Visit(hash, [&](Id id) {
        if (*entries[id].text != entry) return false;
        found = id;
        return true;
    });
    if (!found) return;
    byHash.Remove(hash, *found);
    entries.Give(*found);
    UncountLength(pattern.size());
}

void OccurrenceIndex::Clear() { *this = OccurrenceIndex(patternOf); }

std::string OccurrenceIndex::FirstIn(std::string_view text) const {
    auto oldest = std::numeric_limits<std::uint64_t>::max();
    std::string_view first;
    VisitCandidates(text, [&](const Entry& entry, std::string_view piece) {
        if (entry.order >= oldest || patternOf(*entry.text) != piece) return;
        oldest = entry.order;
        first = *entry.text;
    });
    return std::string(first);
}

std::vector<std::string> OccurrenceIndex::AllIn(std::string_view text) const {
    std::map<std::uint64_t, std::string_view> found;
    VisitCandidates(text, [&](const Entry& entry, std::string_view piece) {
        if (patternOf(*entry.text) == piece) found.emplace(entry.order, *entry.text);
    });
    std::vector<std::string> all;
    for (const auto& [order, entry] : found) all.emplace_back(entry);
    return all;
}

/// Calls `visit` with each entry whose pattern hashes like a piece of `text` in lower case, and that piece.
/// The hashes of up to the shortest head are made on the way; those of longer pieces need the whole text's.
template <typename Visit>
void OccurrenceIndex::VisitCandidates(std::string_view text, Visit visit) const {
    if (lengths.empty()) return;
    std::optional<PieceHashes> hashes;
    for (auto start = starts.Next(text, 0); start <= text.size(); start = starts.Next(text, start + 1)) {
        const auto left = text.size() - start;
        std::uint64_t rolling = 0;
        std::size_t rolled = 0;
        const auto hashOf = [&](std::size_t length) {
            if (length > shortestHead) {
                if (!hashes) hashes.emplace(text);
                return hashes->At(start, length);
            }
            while (rolled < length) rolling = Extend(rolling, LowerChar(text[start + rolled++]));
            return rolling;
        };
        auto head = shortestHead;
        for (const auto& each : lengths) {
            const auto length = each.length; // a name that the lambda below may take
            if (length > left) break;
            while (head < length && IsMarked(hashOf(head))) head *= 2;
            if (head < length) break;
            const auto hash = hashOf(length);
            if (!IsMarked(hash)) continue;
            std::optional<std::string> piece;
            byHash.Visit(hash, [&](Id id) {
                if (!piece) piece = Lower(text.substr(start, length));
                visit(entries[id], *piece);
                return false;
            });
        }
    }
}

void OccurrenceIndex::CountLength(std::size_t length) {
    auto at = std::ranges::lower_bound(lengths, length, {}, &Length::length);
    if (at == lengths.end() || at->length != length) at = lengths.insert(at, Length{length, 0});
    ++at->entries;
}

void OccurrenceIndex::UncountLength(std::size_t length) {
    auto at = std::ranges::lower_bound(lengths, length, {}, &Length::length);
    if (--at->entries == 0) lengths.erase(at);
}

void OccurrenceIndex::Mark(std::uint64_t hash) {
    auto mixed = hash * mixer;
    auto bits = BitsOf(mixed);
    auto& word = filter[WordOf(mixed, filter.size())];
    if ((word & bits) == bits) return;
    word |= bits;
    ++marks;
}

void OccurrenceIndex::MarkEntry(std::string_view pattern) {
    starts.Mark(pattern);
    Mark(HashOf(pattern));
    for (auto head = shortestHead; head < pattern.size(); head *= 2) Mark(HashOf(pattern.substr(0, head)));
}

bool OccurrenceIndex::IsMarked(std::uint64_t hash) const {
    auto mixed = hash * mixer;
    auto bits = BitsOf(mixed);
    return (filter[WordOf(mixed, filter.size())] & bits) == bits;
}

/// Forgets the marks of removed entries and leaves room for as many marks again.
void OccurrenceIndex::RebuildFilter() {
    std::size_t wanted = 0;
    std::size_t all = 0;
    for (auto [length, count] : lengths) {
        all += count;
        for (auto head = shortestHead; head < length; head *= 2) wanted += count;
    }
    wanted += all;
    filter.assign(std::max(smallestFilter, std::bit_ceil(wanted * 2 / marksPerWord)), 0);
    marks = 0;
    starts = StartFilter(all);
    byHash.VisitAll([this](Id id) { MarkEntry(patternOf(*entries[id].text)); });
}

} // namespace halyard
