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

IndexedList::IndexedList(Matching wanted)
    : matching(wanted), index(wanted == Matching::masks ? WithoutAsterisks : Lower) {}

bool IndexedList::Add(std::string_view text) {
    if (text.empty() || !list.Add(std::string(text), text)) return false;
    if (IsIndexed(text)) index.Add(list.Item(static_cast<std::ptrdiff_t>(list.Count())));
    return true;
}

bool IndexedList::Remove(std::string_view text) { return Remove(list.Position(text)); }

bool IndexedList::Remove(std::ptrdiff_t position) {
    if (const auto& text = list.Item(position); IsIndexed(text)) index.Remove(text);
    return list.Remove(position);
}

void IndexedList::Clear() {
    index.Clear();
    list.Clear();
}

std::string IndexedList::FirstWordIn(std::string_view text) const {
    return matching == Matching::words ? index.FirstIn(text) : std::string();
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
