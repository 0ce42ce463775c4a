#pragma once

#include "surface/SurfaceContext.h"
#include "surface/WindowHost.h"
#include "surface/look/Theme.h"

namespace halyard {

/// A window that is filled from the model when it is opened. `Window` has a `form`, an EachControl and a
/// Fill.
template <typename Window>
class Opened {
  public:
    bool Loaded() const { return Self().form.Visible(); }
    /// Fills the window and shows it; one that is open only comes to the front.
    void Show() {
        if (Loaded()) return context.windows.Focus(Self().form);
        Self().Fill();
        Self().EachControl(Theme());
        Self().form.SetVisible(true);
        context.windows.Show(Self().form);
    }
    void Form_Unload() {
        if (!Loaded()) return;
        Self().form.SetVisible(false);
        context.windows.Unload(Self().form);
    }

  protected:
    explicit Opened(const SurfaceContext& context) : context(context) {}
    ~Opened() = default;

    const SurfaceContext& context;

  private:
    Window& Self() { return static_cast<Window&>(*this); }
    const Window& Self() const { return static_cast<const Window&>(*this); }
};

} // namespace halyard
