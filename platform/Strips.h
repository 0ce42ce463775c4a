#pragma once

// Figures over time, beside the controls of Controls.h and in their manner: several strips of bars one below
// the other, over the same columns, and one point among those that a person moves.

#include "platform/Controls.h"

#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace halyard {

class Strips : public Control {
  public:
    /// What a bar's pieces are of, from below.
    struct Part {
        std::string word;
        int color = 0; ///< blue-green-red
        bool operator==(const Part&) const = default;
    };
    struct Strip {
        std::string heading;
        std::string most; ///< what the full height stands for; empty where that says nothing
        int full = 1;
        std::vector<Part> parts;
        /// One a column, each with a figure a part. An empty one: nothing is known of that column.
        std::vector<std::vector<int>> bars;
        bool operator==(const Strip&) const = default;
    };
    /// A word below a column, such as a time.
    struct Mark {
        int column = 0;
        std::string word;
        bool operator==(const Mark&) const = default;
    };

    /// `unknown` says what a column means of which nothing is known.
    Strips(std::string name, std::string unknown)
        : Control(std::move(name), {}), Unknown(std::move(unknown)) {}
    const std::string Unknown;

    std::function<void()> Click;          ///< the point has been moved
    std::function<void()> DblClick;       ///< Enter, too
    std::function<void(int key)> KeyDown; ///< a letter as a capital
    const std::vector<Strip>& All() const { return strips; }
    const std::vector<Mark>& Marks() const { return marks; }
    int Columns() const { return columns; }
    int Point() const { return point; }

    /// Other bars; runs nothing. The point stays in its column, or in the last one.
    void Show(int count, std::vector<Strip> wanted, std::vector<Mark> below) {
        if (columns == count && strips == wanted && marks == below) return;
        columns = count;
        strips = std::move(wanted);
        marks = std::move(below);
        point = std::clamp(point, 0, std::max(columns - 1, 0));
        Redraw();
    }
    /// Outside the columns it stands in the nearest one. Runs Click when it has moved.
    void SetPoint(int column) {
        if (Change(point, std::clamp(column, 0, std::max(columns - 1, 0))) && Click) Click();
    }

  private:
    int columns = 0;
    int point = 0;
    std::vector<Strip> strips;
    std::vector<Mark> marks;
};

} // namespace halyard
