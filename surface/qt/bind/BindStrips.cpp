#include "surface/qt/bind/Bind.h"
#include "surface/qt/widgets/StripView.h"

namespace halyard {

QWidget* BindStrips(Strips& strips) {
    auto* widget = new StripView(strips);
    Follow(strips, *widget, Paint::Field, [widget] { widget->update(); });
    return widget;
}

} // namespace halyard
