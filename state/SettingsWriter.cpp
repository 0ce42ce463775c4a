#include "state/SettingsWriter.h"

#include "oscar/TillerSock.h"
#include "platform/Platform.h"
#include "state/OptionTable.h"
#include "state/Options.h"
#include "state/TextFile.h"

namespace halyard {

namespace {

struct OptionWriter {
    Options& options;
    TextLines& lines;

    void operator()(const FlagOption& flag) const {
        bool on = flag.writesBox ? flag.box(options.Controls)->Value() == 1 : flag.variable(options);
        lines.Add(Head(flag.key), std::to_string(Bool2Int(on)));
    }
    void operator()(const TextOption& text) const { lines.Add(Head(text.key), text.get(options)); }
    void operator()(const ListOption& list) const { list.write(options, lines, Head(list.key)); }
    void operator()(const SpecialOption& special) const { special.write(options, lines); }

    static std::string Head(const char* key) { return std::string(key) + ":"; }
};

void AddBanner(TextLines& lines) {
    const std::string bars(34, '|');
    lines.Add("Program Name: Halyard");
    lines.Add("Creator: Tiller");
    lines.Add(SettingsVersion);
    lines.Add("");
    lines.Add(bars);
    lines.Add("||||HALYARD SETTINGS FILE||||");
    lines.Add(bars);
    lines.Add("");
}

TextLines SettingsLines(Options& options) {
    TextLines lines;
    AddBanner(lines);
    for (const auto& option : OptionTable()) std::visit(OptionWriter{options, lines}, option);
    return lines;
}

} // namespace

std::string SettingsText(Options& options) { return SettingsLines(options).Text(); }

bool WriteSettings(Platform& platform, Options& options, const std::string& folderOrPath,
                   const std::string& fileName) {
    auto& files = platform.FileSystem();
    const auto path = PathOf(files, folderOrPath, fileName);
    return TellWritten(options.Control().Tell(), path, SettingsLines(options).Save(files, path));
}

} // namespace halyard
