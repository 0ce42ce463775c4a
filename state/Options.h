#pragma once

// The option model: every option's variable, which the running code reads, and its control, kept in step as
// each option's rule says. The main window owns the one model; commands, panels and files work on it.

#include "base/Collection.h"
#include "base/IndexedList.h"
#include "state/CcomTable.h"
#include "state/OptionControls.h"
#include "state/Permissions.h"

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace halyard {

class Platform;
class TillerSock;
class Timer;
struct OscarSettings;
enum class Reset;

/// As which a flag goes to the file.
inline std::int16_t Bool2Int(bool blnBool) { return blnBool ? 1 : 0; }

class Options {
  public:
    /// Binds the click and lost-focus handlers of all option controls. `control` and `settings` outlive the
    /// model.
    Options(Platform& platform, TillerSock& control, OscarSettings& settings);
    ~Options();

    // Lists: normalised text as item and key.
    IndexedList Ops{Matching::whole, ListName::Ops};
    IndexedList Immunes{Matching::whole, ListName::Immunes};
    OpPermissions Perms;
    IndexedList Autobans{Matching::masks, ListName::Autobans};
    IndexedList Autowords{Matching::words, ListName::Autowords};
    IndexedList LockOps{Matching::whole, ListName::LockOps};
    IndexedList LockImms{Matching::whole, ListName::LockImms};
    IndexedList LockBans{Matching::masks, ListName::LockBans};
    /// All of them, in the order in which they stand here.
    std::array<IndexedList*, 7> Lists() {
        return {&Ops, &Immunes, &Autobans, &Autowords, &LockOps, &LockImms, &LockBans};
    }

    CcomTable Ccoms;
    // What these start with stands in the option table, or for those with rules of their own in the next
    // lines.
    static constexpr std::int16_t DefaultUnratePause = 5;
    static constexpr std::int16_t DefaultCharBanNum = 16;
    static constexpr float DefaultBanPause = 1.0F; ///< seconds

    std::string UniPerms;

    bool AutoUnrate = false;
    std::int16_t UnratePause = DefaultUnratePause; ///< minutes
    std::string strCurrentUser;
    std::int16_t AutobanLevel = 0; ///< 0 none, 1 selected, 2 all
    bool WordBanOn = false, WordBanHTML = false, WordBanAll = false;
    bool AutobanGhosts = false, BanAllICQs = false, CharBanOn = false;
    std::int16_t CharBanNum = DefaultCharBanNum;
    bool AutoImm = false, AutoOwner = false, RejoinKicked = false, RejoinError = false;
    std::array<bool, 5> PartialOn{};
    std::array<bool, 5> ChainOn{};
    bool IMComsOn = false, ReconnectOn = false, ReconnectAlerts = false, ABOnUnrate = false;
    bool AutoSaveOn = false, AutoSaveBansOn = false;
    std::string AutoSaveFile, EjectListFile;
    std::int16_t AutoSaveMinutes = 0;
    bool SettingsLoading = false; ///< written while a file is read, and read by nobody

    OptionControls Controls;
    std::unique_ptr<Timer> tmrAutoSave; ///< 60 s; its handler belongs to the settings file

    /// What the program starts with, without asking: the hosts to choose from, switches, file names, font and
    /// ccoms.
    void StartUp();

    /// Every room follows.
    void SetAutoUnrate(bool AutoUnrateOn);
    /// Does nothing, on purpose: rooms learn of a pause only when the box loses the focus or a file is read.
    void SetAutoUnratePause(std::int16_t intRatePause);
    void SetChatSend(bool ChatSend);
    void SetIMComs(bool blnIMComs) { IMComsOn = blnIMComs; }
    /// WordBanHTML takes the same value although its box stays as it is, on purpose.
    void SetWordBanOn(bool value);
    void SetAutobanLevel(std::int16_t level) { AutobanLevel = level; }
    /// Removes the key, then adds the value under it.
    void SetPerms(const std::string& strOp, const std::string& strPerms);
    void SetFont();    ///< cmdSetFont
    void ResetFont();  ///< cmdResetFont
    void ChooseFont(); ///< cmdGetFont; the header follows only with SetFont

    /// cmdNewSettings: NewSettings once the operator has said yes.
    void AskNewSettings();
    /// Everything back to its default, in its settled order, without asking. Windows that edit are closed
    /// through `onCloseEditors` at its end.
    void NewSettings();
    std::function<void()> onCloseEditors;
    /// Asked before New Settings closes them; false keeps them and the settings. Unset, they may be closed.
    std::function<bool()> onMayCloseEditors;

    /// The settings are now those of the file at this path, read or written by the operator; with an empty
    /// path those of no file.
    enum class FileUse { Read, Written, None };
    std::function<void(FileUse use, const std::string& path)> onSettingsFile;

    TillerSock& Control() { return control; }
    OscarSettings& Shared() { return settings; }

  private:
    void TakeDefaults();
    void SetToolTips();
    void BindBoxes();
    void BindTexts();
    void AutoSaveClicked();
    void AutoSaveBansClicked();
    void CharBanLeft();
    void UnrateLeft();
    void AutoSaveFileLeft();
    void ResetPart(Reset part);
    void ClearLists();
    void ResetAutoSave();
    void ResetUnrate();
    void ResetBanPause();

    Platform& platform;
    TillerSock& control;
    OscarSettings& settings;
};

} // namespace halyard
