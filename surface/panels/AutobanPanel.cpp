#include "surface/panels/AutobanPanel.h"

#include "commands/CommandEngine.h"
#include "platform/Platform.h"
#include "state/Options.h"
#include "surface/panels/ListEntry.h"

namespace halyard {

namespace {

constexpr const char* BadLength = "Autoban lengths can only be between two characters to 100!";

} // namespace

AutobanPanel::AutobanPanel(const SurfaceContext& context) {
    auto& lists = context.engine.Lists();
    auto& boxes = context.platform.Boxes();
    auto& controls = context.options.Controls;
    BindEntry(txtAddAB, boxes, BadLength, [&lists](const std::string& name) { lists.AddAB(name, 0); });
    BindEntry(txtAddAW, boxes, BadLength, [&lists](const std::string& word) { lists.AddAW(word, 0); });
    BindRemoval(controls.lstABs, [&lists](const std::string& name) { lists.RemoveAB(name, 0); });
    BindRemoval(controls.lstAWs, [&lists](const std::string& word) { lists.RemoveAW(word, 0); });
}

} // namespace halyard
