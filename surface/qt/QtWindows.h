#pragma once

// Draws every window of the bot. Made before the main window's model, which tells it what to show; what it
// has drawn must be closed before that model goes.

#include "surface/WindowHost.h"

#include <QObject>

#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace halyard {

class Bridge;
class FormWindow;
class frmMain;

class QtWindows : public WindowHost {
  public:
    QtWindows();
    ~QtWindows() override;

    /// Binds the main window and gets ready to draw the others; shows nothing yet. With a bridge, what it
    /// adds stands below the panels.
    void Draw(frmMain& main, Bridge* bridge = nullptr);
    /// Lets go of every window at once.
    void Close();

    void Show(Form& window) override;
    void ShowConsole(frmConsole& console) override;
    void Unload(Form& window) override;
    void Focus(Form& window) override;

  private:
    struct Window {
        std::shared_ptr<void> model; ///< outlives what is drawn of it; null when it needs no keeping
        std::unique_ptr<FormWindow> drawn;
    };
    using Maker = std::function<std::unique_ptr<FormWindow>()>;

    template <typename Model>
    void Offer(Model& model, std::unique_ptr<FormWindow> (*draw)(Model&));

    frmMain* main = nullptr;
    std::map<const Form*, Maker> makers; ///< of windows that are drawn when they are first shown
    std::map<const Form*, Window> windows;
    std::vector<Window> going; ///< consoles that have been closed
    QObject keeper;
};

} // namespace halyard
