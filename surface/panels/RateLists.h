#pragma once

// The two lists of rooms that the service has limited, one for banning and one for talking. They are seen
// only while one holds a room: the window is higher then. The main window owns the one pair.

#include "platform/Controls.h"
#include "surface/SurfaceContext.h"

#include <array>
#include <cstdint>
#include <string>

namespace halyard {

class RateLists {
  public:
    static constexpr int PlainHeight = 6810; ///< twips
    static constexpr int RatedHeight = 7800;

    RateLists(const SurfaceContext& context, Form& form);

    /// 0 for rate class 1, banning; 1 for class 5, talking.
    std::array<ListBox, 2> lstRated{ListBox("lstRated(0)"), ListBox("lstRated(1)")};
    std::array<Label, 2> lblRated{Label("lblRated(0)", "Banning limited"),
                                  Label("lblRated(1)", "Talking limited")};

    void Rated(int intType, const std::string& strChatName);
    void Unrated(int intType, const std::string& strChatName, std::int16_t intChatIndex);
    /// Lists every room that is limited anew; the window has come back to its plain size.
    void ListRatedRooms();

    template <typename Visit>
    void EachControl(Visit&& visit) {
        for (auto& list : lstRated) visit(list);
        for (auto& label : lblRated) visit(label);
    }

  private:
    void DoubleClicked(int intType);
    void LowerWindow();
    bool Empty() const { return lstRated[0].ListCount() == 0 && lstRated[1].ListCount() == 0; }
    /// Says template `number` in the room at this position, then bans who came while that was impossible.
    void ResumeBanning(const std::string& minutes, int number, std::int16_t position);

    const SurfaceContext& context;
    Form& form;
};

} // namespace halyard
