#include "bridge/ledger/keeping/Contents.h"

#include "bridge/ledger/RowIds.h"
#include "platform/Md5.h"

namespace halyard {

std::int64_t ContentId(Connection& file, std::string_view entries) {
    auto digest = Md5(entries);
    if (digest.empty()) digest = entries; // a machine that refuses MD5
    auto& find = file.Prepare("SELECT id FROM contents WHERE digest = ?");
    const auto id = find.BindBlob(1, digest).Step() ? find.Integer(0) : 0;
    find.Reset();
    if (id != 0) return id;
    auto& add = file.Prepare("INSERT INTO contents(digest, entries) VALUES(?, ?)");
    add.BindBlob(1, digest).BindBlob(2, entries).Step();
    return file.LastRow();
}

void PutWhole(Connection& file, const WholeRow& whole, std::string_view entries) {
    const auto content = ContentId(file, entries);
    auto& add = file.Prepare("INSERT INTO wholes(run, at, after_change, list, room, content, begins) "
                             "VALUES(?, ?, ?, ?, ?, ?, ?)");
    add.Bind(1, whole.run).Bind(2, whole.at).Bind(3, whole.afterChange).Bind(4, static_cast<int>(whole.list));
    BindId(add, 5, whole.room).Bind(6, content).Bind(7, whole.begins ? 1 : 0).Step();
}

} // namespace halyard
