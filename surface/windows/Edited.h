#pragma once

#include "oscar/TillerSock.h"
#include "platform/Dialogs.h"
#include "platform/Platform.h"
#include "surface/windows/Opened.h"

#include <string>
#include <utility>

namespace halyard {

/// A window whose edits count only once they are set. `Window` has a Content: all that can be typed, as one
/// text; and says when the boxes show what is set.
template <typename Window>
class Edited : public Opened<Window> {
  public:
    /// False when it stays as it is: something was typed and not set, and the operator, who is asked with
    /// Departure::NothingTypedIsLost, would not lose it.
    bool MayDrop() {
        if (!this->Loaded() || Self().Content() == settled ||
            !this->context.control.Guarded(Departure::NothingTypedIsLost))
            return true;
        return this->context.platform.Boxes().YesNo("Note",
                                                    "What was typed in '" + Self().form.Caption() +
                                                        "' and not set will be lost. Do you want to go on?");
    }

  protected:
    using Opened<Window>::Opened;
    void Settle() { settled = Self().Content(); }

  private:
    const Window& Self() const { return static_cast<const Window&>(*this); }

    std::string settled;
};

} // namespace halyard
