#include "surface/bridge/ledger/OpPane.h"

#include "platform/Platform.h"
#include "surface/bridge/ledger/ActText.h"

namespace halyard {

OpPane::OpPane(Platform& platform, const LedgerRead& read) : platform(platform), question(read) {
    tblOps.DblClick = [this] {
        if (tblOps.Index() < 0 || !onGo) return;
        const auto op = ops[static_cast<std::size_t>(tblOps.Index())];
        onGo(op.row, op.name);
    };
}

void OpPane::Show(std::int64_t row, const std::string& name) {
    txtOp.SetText("");
    const auto since = platform.CalendarMilliseconds() - std::int64_t{Days} * 24 * 3600 * 1000;
    struct Found {
        std::optional<OpPage> page;
        std::vector<ActsOf> ops;
    };
    question.Ask(
        [row, name, since](Connection& connection) {
            Found found;
            found.ops = ReadOps(connection);
            const auto person = row != 0 || name.empty() ? row : FindPerson(connection, name);
            if (person != 0) found.page = ReadOp(connection, person, since);
            return found;
        },
        [this, asked = row != 0 || !name.empty()](const DatabaseResult& result, const Found& found) {
            if (!result.Ok()) return txtOp.SetText(Readable(result.words));
            ops = found.ops;
            std::vector<TableBox::Line> lines;
            for (const auto& op : ops) lines.push_back(ActsLine(op));
            tblOps.SetAll(std::move(lines));
            if (!found.page)
                return txtOp.SetText(asked ? "The ledger knows no op of that name."
                                           : "Type a name above, or choose an op below.");
            txtOp.SetText(OpWords(*found.page, Days));
        });
}

TableBox::Line ActsLine(const ActsOf& one) {
    return {{Readable(one.name), Counted(one.acts, ""), "#" + std::to_string(one.lastAct)}};
}

} // namespace halyard
