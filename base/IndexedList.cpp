#include "base/IndexedList.h"

#include "base/Text.h"

#include <algorithm>

namespace halyard {

namespace {

bool HasAsterisk(std::string_view text) { return text.find('*') != std::string_view::npos; }

std::string WithoutAsterisks(std::string_view mask) {
    auto pattern = Lower(mask);
    std::erase(pattern, '*');
    return pattern;
}

} // namespace

IndexedList::IndexedList(Matching wanted, ListName name)
    : matching(wanted), name(name), index(wanted == Matching::masks ? WithoutAsterisks : Lower) {}

bool IndexedList::Add(std::string_view text) {
    if (text.empty() || !list.Add(std::string(text), text)) return false;
    const auto& entry = list.Item(static_cast<std::ptrdiff_t>(list.Count()));
    if (IsIndexed(text)) index.Add(entry);
    if (telling && telling->news) telling->news->ListAdded({name}, entry);
    return true;
}

bool IndexedList::Remove(std::string_view text) { return Remove(list.Position(text)); }

bool IndexedList::Remove(std::ptrdiff_t position) {
    const auto& text = list.Item(position);
    if (IsIndexed(text)) index.Remove(text);
    const auto gone = telling && telling->news ? text : std::string();
    if (!list.Remove(position)) return false;
    if (telling && telling->news) telling->news->ListRemoved({name}, gone);
    return true;
}

void IndexedList::Clear() {
    const bool had = list.Count() > 0;
    index.Clear();
    list.Clear();
    if (had && telling && telling->news) telling->news->ListCleared({name});
}

std::string IndexedList::FirstWordIn(std::string_view text) const {
    return matching == Matching::words ? index.FirstIn(text) : std::string();
}

std::vector<std::string> IndexedList::AllWordsIn(std::string_view text) const {
    return matching == Matching::words ? index.AllIn(text) : std::vector<std::string>();
}

std::string IndexedList::FirstMatch(std::string_view name) const {
    if (matching != Matching::masks) return {};
    auto mask = index.FirstIn(name);
    const auto& equal = EqualEntry(name);
    if (mask.empty() || equal.empty()) return mask.empty() ? equal : mask;
    return Position(mask) < Position(equal) ? mask : equal;
}

std::vector<std::string> IndexedList::AllMatches(std::string_view name) const {
    if (matching != Matching::masks) return {};
    auto all = index.AllIn(name);
    if (const auto& equal = EqualEntry(name); !equal.empty()) {
        auto comesBefore = [this](const std::string& mask, std::ptrdiff_t place) {
            return Position(mask) < place;
        };
        all.insert(std::lower_bound(all.begin(), all.end(), Position(equal), comesBefore), equal);
    }
    return all;
}

bool IndexedList::IsIndexed(std::string_view text) const {
    return matching == Matching::words || (matching == Matching::masks && HasAsterisk(text));
}

/// The entry without an asterisk that equals `name`; empty when there is none. A mask is never met by
/// equality.
const std::string& IndexedList::EqualEntry(std::string_view name) const {
    return Item(HasAsterisk(name) ? std::string_view() : name);
}

} // namespace halyard
