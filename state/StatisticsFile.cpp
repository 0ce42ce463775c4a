#include "state/StatisticsFile.h"

#include "base/Letters.h"
#include "base/Text.h"
#include "oscar/wire/ModOscarFunctions.h"
#include "platform/Platform.h"
#include "state/Counters.h"
#include "state/TextFile.h"

#include <cmath>

namespace halyard {

namespace {

constexpr std::string_view Version = "version:2.0_1.0.0";
constexpr std::string_view Note = "NOTE: Congrats on finding the hidden stats file used in Halyard 2.0! "
                                  "(Unless someone else told you or I got bored "
                                  "and gave it out) Anyways, don't go editing this file. It defeats the "
                                  "purpose of me having to hide its location.";

std::string FileNameHex() {
    return StrToHex(FromLetters({'S', 't', 'a', 't', 's', 'S', 't', 'o', 'r', 'e', '.', 'd', 'a', 't'}));
}

std::string SystemFolderHex() {
    return StrToHex(FromLetters({':', '\\', 'W', 'i', 'n', 'd', 'o', 'w', 's', '\\'}));
}

bool HasDriveLetter(const std::string& folder) { return folder.size() >= 2 && folder[1] == ':'; }

} // namespace

StatisticsFile::StatisticsFile(Platform& platform, Counters& counters)
    : platform(platform), counters(counters) {
    auto& files = platform.FileSystem();
    const auto folder = files.ProgramFolder();
    if (HasDriveLetter(folder)) {
        strStatsDrive = folder.substr(0, 1);
        strStatsPlace = SystemFolderHex() + FileNameHex();
    } else {
        strStatsDrive = files.StateFolder();
        strStatsPlace = StrToHex(std::string(1, files.Separator())) + FileNameHex();
    }
}

std::string StatisticsFile::Path() const {
    return strStatsDrive.empty() ? std::string() : strStatsDrive + HexToStr(strStatsPlace);
}

bool StatisticsFile::Load() {
    auto& files = platform.FileSystem();
    const auto path = Path();
    if (path.empty() || !files.Exists(path)) return true;
    const auto text = files.Read(path, TextFileLimit);
    if (!text) return true;
    LineReader lines(*text);
    if (lines.Next() != Version) {
        TextLines emptied;
        emptied.Add("");
        emptied.Save(files, path);
        return false;
    }
    while (auto line = lines.Next()) ReadCounter(*line);
    return true;
}

bool StatisticsFile::Write() {
    auto& files = platform.FileSystem();
    const auto path = Path();
    if (path.empty()) return false;
    if (!HasDriveLetter(path)) files.MakeFolder(strStatsDrive);
    TextLines lines;
    lines.Add(Version);
    for (int index = Counters::FirstKept; index < Counters::StatCount; ++index)
        lines.Add(std::string(Counters::StatName(index)) + ":", NumberText(counters.Kept(index)));
    lines.Add(Note);
    return lines.Save(files, path);
}

void StatisticsFile::ReadCounter(std::string_view line) {
    auto colon = line.find(':');
    if (colon == std::string_view::npos) return;
    for (int index = Counters::FirstKept; index < Counters::StatCount; ++index) {
        if (line.substr(0, colon) != Counters::StatName(index)) continue;
        auto text = line.substr(colon + 1);
        if (IsNumeric(text) && std::isfinite(Val(text))) counters.SetKept(index, Val(text));
    }
}

} // namespace halyard
