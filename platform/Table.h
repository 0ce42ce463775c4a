#pragma once

// Controls of many lines and of work that takes long, beside those of Controls.h and in their manner: a table
// of cells, and a bar that fills. Texts are Windows-1252.

#include "platform/Controls.h"

#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace halyard {

/// Lines of cells below headings, counted from 0. One may be chosen, -1 is none; any may be ticked that have
/// a box for it.
class TableBox : public Control {
  public:
    struct Column {
        std::string heading;
        int letters = 0; ///< how wide, in average letters; 0 takes what the others leave
    };
    enum class Tick { None, Off, On };
    struct Line {
        std::vector<std::string> cells; ///< one a column
        Tick tick = Tick::None;
        bool operator==(const Line&) const = default;
    };

    TableBox(std::string name, std::vector<Column> columns)
        : Control(std::move(name), {}), Columns(std::move(columns)) {}
    const std::vector<Column> Columns;

    std::function<void()> Click;           ///< another line is chosen, or none
    std::function<void()> DblClick;        ///< Enter, too
    std::function<void(int index)> Ticked; ///< a person, or SetTick, has changed a tick
    std::function<void(int key)> KeyDown;  ///< a letter as a capital, BackKey, HomeKey or CopyKey
    std::function<void()> AtEnd;           ///< the last line has come into sight
    static constexpr int CopyKey = 3;      ///< Ctrl+C
    static constexpr int BackKey = 8;      ///< Backspace
    static constexpr int HomeKey = 36;     ///< besides going to the first line
    /// Finer news for a view, besides `onView`: other lines, lines added behind the last, the first ones
    /// gone, one that is another.
    std::function<void()> onReset;
    std::function<void(int count)> onAdded;
    std::function<void(int count)> onFirstGone;
    std::function<void(int index)> onChanged;

    int Count() const { return static_cast<int>(lines.size()); }
    /// An empty line outside the lines.
    const Line& At(int index) const;
    /// Other lines, none of them chosen; runs nothing.
    void SetAll(std::vector<Line> others);
    void Add(std::vector<Line> further);
    /// The first `count` lines go; the chosen one stays it, unless it is one of them. Runs nothing.
    void RemoveFirst(int count);
    /// Outside the lines nothing changes.
    void Set(int index, Line line);
    /// A line without a box keeps none.
    void SetTick(int index, bool on);
    std::vector<int> TickedLines() const;
    int Index() const { return chosen; }
    /// -1 for none; another index without a line changes nothing. Runs Click when another is chosen.
    void Choose(int index);

  private:
    bool Has(int index) const { return index >= 0 && index < Count(); }

    std::deque<Line> lines;
    int chosen = -1;
};

/// How much of something is done: `Value` of `Most`.
class Gauge : public Control {
  public:
    explicit Gauge(std::string name) : Control(std::move(name), {}) {}
    int Value() const { return value; }
    int Most() const { return most; }
    void Show(int done, int of) { Change(most, of), Change(value, done); }

  private:
    int value = 0;
    int most = 0;
};

} // namespace halyard
