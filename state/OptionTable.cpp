#include "state/OptionTable.h"

#include "oscar/TillerSock.h"
#include "state/AuthServers.h"
#include "state/ListWorkers.h"
#include "state/Options.h"
#include "state/TextFile.h"

namespace halyard {

namespace {

using enum FlagReading;

template <auto Member>
bool& Own(Options& options) {
    return options.*Member;
}
template <auto Member>
bool& Shared(Options& options) {
    return options.Shared().*Member;
}
template <auto Array, std::size_t Index>
bool& Entry(Options& options) {
    return (options.*Array)[Index];
}
bool& ChatSendOn(Options& options) { return options.Control().ChatSendOn; }
bool& Comments(Options& options) { return options.Ccoms.blnCcomComments; }

template <auto Member>
auto* Box(OptionControls& controls) {
    return &(controls.*Member);
}
template <auto Array, std::size_t Index>
CheckBox* BoxEntry(OptionControls& controls) {
    return &(controls.*Array)[Index];
}

/// A text that lives in its control alone.
template <auto Member>
std::string Shown(Options& options) {
    return (options.Controls.*Member).Text();
}
template <auto Member>
void Show(Options& options, const std::string& value) {
    (options.Controls.*Member).SetText(value);
}

template <auto Member>
std::string Stored(Options& options) {
    return options.*Member;
}
template <auto Member>
void Store(Options& options, const std::string& value) {
    options.*Member = value;
}
/// A text that lives in a variable and in its box.
template <auto Member, auto Control>
void StoreAndShow(Options& options, const std::string& value) {
    options.*Member = value;
    Show<Control>(options, value);
}
template <auto Member>
std::string SharedText(Options& options) {
    return options.Shared().*Member;
}
std::string Trigger(Options& options) { return options.Ccoms.strTrigger; }
void SetTrigger(Options& options, const std::string& value) { options.Ccoms.strTrigger = value; }

template <auto Member>
void WriteNames(Options& options, TextLines& lines, const std::string& head) {
    for (const auto& name : options.*Member) lines.Add(head, name);
}

using O = Options;
using C = OptionControls;
using S = OscarSettings;
using W = ListWorkers;

template <std::size_t Index>
FlagOption Partial(const char* key) {
    return {key, Entry<&O::PartialOn, Index>, BoxEntry<&C::chkPartial, Index>, true, Reset::Commands, Set};
}
template <std::size_t Index>
FlagOption Chain(const char* key) {
    return {key, Entry<&O::ChainOn, Index>, BoxEntry<&C::chkChain, Index>, false, Reset::Commands, Set};
}

} // namespace

std::span<const Option> OptionTable() {
    static const Option table[] = {
        TextOption{"sn", Shown<&C::txtSN>, Show<&C::txtSN>, "", Reset::Account},
        TextOption{"server", Shown<&C::cmbServer>, Show<&C::cmbServer>, AuthServers[0], Reset::Account},
        TextOption{"port", Shown<&C::txtPort>, Show<&C::txtPort>, "5190", Reset::Account},
        FlagOption{"md5", Shared<&S::LoginMD5>, Box<&C::chkMD5Login>, true, Reset::SignOn, TruthThenCheck},
        FlagOption{"fullcaps", Shared<&S::LoginFullCaps>, Box<&C::chkFullCaps>, true, Reset::SignOn,
                   TruthThenCheck},
        FlagOption{"secureim", Shared<&S::LoginSecureIM>, Box<&C::chkSecureIM>, true, Reset::SignOn,
                   TruthThenCheck},
        FlagOption{"re-connect", Own<&O::ReconnectOn>, Box<&C::chkAutoLogin>, false, Reset::SignOn,
                   TruthThenCheck},
        FlagOption{"alerts", Own<&O::ReconnectAlerts>, Box<&C::chkNotify>, true, Reset::SignOn,
                   TruthThenCheck},
        TextOption{"chat", Shown<&C::txtChat>, Show<&C::txtChat>, "", Reset::Rooms},
        TextOption{"ex", Shown<&C::txtEx>, Show<&C::txtEx>, "4", Reset::Rooms},
        FlagOption{"autoowner", Own<&O::AutoOwner>, Box<&C::chkAutoOwner>, false, Reset::Rooms, Check},
        FlagOption{"rejoinkick", Own<&O::RejoinKicked>, Box<&C::chkRejoinKick>, false, Reset::Rooms, Check},
        FlagOption{"rejoinerror", Own<&O::RejoinError>, Box<&C::chkRejoinError>, false, Reset::Rooms, Check},
        special::op,
        ListOption{"imm", WriteNames<&O::Immunes>, &W::AddImm},
        FlagOption{"autoimm", Own<&O::AutoImm>, Box<&C::chkAutoImm>, false, Reset::None, Check, nullptr,
                   nullptr, true},
        ListOption{"ab", WriteNames<&O::Autobans>, &W::AddAB},
        ListOption{"aw", WriteNames<&O::Autowords>, &W::AddAW},
        special::ablevel,
        FlagOption{"wordban", Own<&O::WordBanOn>, Box<&C::chkAWOn>, false, Reset::Autobans, SetThenCheck,
                   &O::SetWordBanOn},
        FlagOption{"wordbanhtml", Own<&O::WordBanHTML>, Box<&C::chkIncludeHTML>, false, Reset::Autobans,
                   SetThenCheck, nullptr, &O::WordBanOn},
        FlagOption{"wordbanall", Own<&O::WordBanAll>, Box<&C::chkWordBanAll>, false, Reset::Autobans,
                   SetThenCheck},
        FlagOption{"autogban", Own<&O::AutobanGhosts>, Box<&C::chkBanGhosters>, false, Reset::Autobans,
                   SetThenCheck},
        FlagOption{"icqban", Own<&O::BanAllICQs>, Box<&C::chkBanICQs>, false, Reset::Autobans, SetThenCheck},
        FlagOption{"charban", Own<&O::CharBanOn>, Box<&C::chkCharBan>, false, Reset::Autobans, SetThenCheck},
        special::charbannum,
        Partial<0>("partial0"),
        Partial<1>("partial1"),
        Partial<2>("partial2"),
        Partial<3>("partial3"),
        Partial<4>("partial4"),
        Chain<0>("chain0"),
        Chain<1>("chain1"),
        Chain<2>("chain2"),
        Chain<3>("chain3"),
        Chain<4>("chain4"),
        FlagOption{"chatsendon", ChatSendOn, Box<&C::chkChatSendOn>, true, Reset::Speech, CheckThenSet,
                   &O::SetChatSend},
        FlagOption{"autounrate", Own<&O::AutoUnrate>, Box<&C::chkAutoUnrate>, true, Reset::None, SetThenCheck,
                   &O::SetAutoUnrate},
        FlagOption{"abunrate", Own<&O::ABOnUnrate>, Box<&C::chkABOnUnrate>, false, Reset::Speech,
                   CheckThenSet},
        special::unratepause,
        FlagOption{"autosave", Own<&O::AutoSaveOn>, Box<&C::chkAutoSave>, false, Reset::None, CheckThenSet},
        TextOption{"autosavefile", Stored<&O::AutoSaveFile>,
                   StoreAndShow<&O::AutoSaveFile, &C::txtAutoSaveFile>, "AutoSaveFile.hys", Reset::Files, 1,
                   40},
        FlagOption{"autosavebans", Own<&O::AutoSaveBansOn>, Box<&C::chkAutoSaveBans>, false, Reset::None,
                   CheckThenSet, nullptr, &O::AutoSaveOn},
        TextOption{"autosavebanfile", Stored<&O::EjectListFile>,
                   StoreAndShow<&O::EjectListFile, &C::txtEjectListFileName>, "EjectLists.txt", Reset::Files,
                   1, 40, Box<&C::txtEjectListFileName>, &O::AutoSaveOn},
        TextOption{"user", Stored<&O::strCurrentUser>, StoreAndShow<&O::strCurrentUser, &C::txtCurrentUser>,
                   "Unknown", Reset::User, 1, 100},
        special::banpause,
        // The file shows the font in effect; reading fills the boxes only, on purpose.
        TextOption{"backgroundcolor", SharedText<&S::FontBGColor>, Show<&C::txtBGColor>, "000000",
                   Reset::Font},
        TextOption{"fontcolor", SharedText<&S::FontColor>, Show<&C::txtFontColor>, "00BFFF", Reset::Font},
        TextOption{"fonttype", SharedText<&S::FontType>, Show<&C::txtFontType>, "Arial", Reset::Font},
        special::bold,
        special::italics,
        special::underline,
        special::strike,
        special::ccom,
        TextOption{"trigger", Trigger, SetTrigger, "", Reset::None, 1, 3},
        FlagOption{"comment", Comments, nullptr, true, Reset::None, Set},
        TextOption{"uniperms", Stored<&O::UniPerms>, Store<&O::UniPerms>, DefaultPerms, Reset::Permissions,
                   28, 28},
        FlagOption{"imcoms", Own<&O::IMComsOn>, nullptr, false, Reset::Commands, SetTruth, &O::SetIMComs},
        ListOption{"lockops", WriteNames<&O::LockOps>, &W::AddLockOp},
        ListOption{"lockimms", WriteNames<&O::LockImms>, &W::AddLockImm},
        ListOption{"lockbans", WriteNames<&O::LockBans>, &W::AddLockBan},
        special::chatsend,
    };
    return table;
}

void SetFlag(Options& options, const FlagOption& flag, bool value) {
    if (flag.setter)
        (options.*flag.setter)(value);
    else
        flag.variable(options) = value;
}

} // namespace halyard
