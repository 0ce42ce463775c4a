#pragma once

// Controls that share a name and are told apart by a number, such as "lblStat(3)", and the keys and buttons
// that handlers ask for.

#include "platform/Controls.h"

#include <deque>
#include <initializer_list>
#include <string>

namespace halyard {

inline constexpr int EnterKey = 13;
inline constexpr int DeleteKey = 46;
inline constexpr int RightButton = 2;

inline std::string NumberedName(const char* name, int index) {
    return std::string(name) + "(" + std::to_string(index) + ")";
}

/// One control a caption, numbered from `first`.
template <typename T>
std::deque<T> Numbered(const char* name, int first, std::initializer_list<const char*> captions) {
    std::deque<T> controls;
    for (const auto* caption : captions) controls.emplace_back(NumberedName(name, first++), caption);
    return controls;
}

/// Text boxes, numbered from 0, that take `maxLength` characters; 0 is no limit.
inline std::deque<TextBox> NumberedBoxes(const char* name, int count, std::size_t maxLength) {
    std::deque<TextBox> boxes;
    for (int index = 0; index < count; ++index) boxes.emplace_back(NumberedName(name, index), "", maxLength);
    return boxes;
}

/// The first line equal to `wanted`, both compared in lower case without blanks; -1 when there is none.
int FindLine(const ListBox& list, const std::string& wanted);

} // namespace halyard
