#include "bridge/ledger/Schema.h"

#include "base/Text.h"

#include <array>

namespace halyard {

namespace {

constexpr std::array<std::string_view, 17> Words = {
    "",       "ban",  "unban", "kick",   "timeban", "readmit", "list-add", "list-remove", "list-clear",
    "option", "load", "undo",  "answer", "appeal",  "note",    "forget",   "guard",
};

// Rows point at each other without the database's own foreign keys: a row may outlive what it points at when
// a gap took that one or a prune did. Verify knows which may not.
constexpr const char* Migration1 = R"(
CREATE TABLE runs(
  id INTEGER PRIMARY KEY, began INTEGER NOT NULL, ended INTEGER, version TEXT NOT NULL) STRICT;
CREATE TABLE networks(id INTEGER PRIMARY KEY, name TEXT NOT NULL UNIQUE) STRICT;
CREATE TABLE accounts(
  id INTEGER PRIMARY KEY, network INTEGER NOT NULL, name TEXT NOT NULL, UNIQUE(network, name)) STRICT;
CREATE TABLE rooms(
  id INTEGER PRIMARY KEY, key TEXT NOT NULL, exchange INTEGER NOT NULL, spelled TEXT NOT NULL,
  UNIQUE(key, exchange)) STRICT;
CREATE TABLE persons(
  id INTEGER PRIMARY KEY, key TEXT UNIQUE, spelled TEXT, indexed TEXT, skeleton TEXT,
  forgotten INTEGER NOT NULL DEFAULT 0 CHECK(forgotten IN (0, 1))) STRICT;
CREATE INDEX persons_skeleton ON persons(skeleton);
CREATE TABLE rules(
  id INTEGER PRIMARY KEY, kind INTEGER NOT NULL, entry TEXT NOT NULL, UNIQUE(kind, entry)) STRICT;
CREATE TABLE causes(
  id INTEGER PRIMARY KEY, kind INTEGER NOT NULL, who INTEGER, room INTEGER, rule INTEGER, entry TEXT,
  line TEXT, reason TEXT, around INTEGER) STRICT;
CREATE TABLE acts(
  id INTEGER PRIMARY KEY, run INTEGER NOT NULL, at INTEGER NOT NULL, cause INTEGER NOT NULL,
  kind INTEGER NOT NULL, person INTEGER, room INTEGER, op INTEGER, rule INTEGER, list INTEGER, entry TEXT,
  undoes INTEGER, undone INTEGER, queued INTEGER, asked INTEGER, answered INTEGER,
  outcome INTEGER NOT NULL CHECK(outcome BETWEEN 0 AND 8), code INTEGER) STRICT;
CREATE INDEX acts_cause ON acts(cause);
CREATE INDEX acts_person ON acts(person, id) WHERE person IS NOT NULL;
CREATE INDEX acts_op ON acts(op, id) WHERE op IS NOT NULL;
CREATE INDEX acts_rule ON acts(rule, id) WHERE rule IS NOT NULL;
CREATE INDEX acts_undoes ON acts(undoes) WHERE undoes IS NOT NULL;
CREATE TABLE requests(
  id INTEGER PRIMARY KEY, run INTEGER NOT NULL, room INTEGER, wire INTEGER NOT NULL, act INTEGER,
  at INTEGER NOT NULL, verdict INTEGER, word INTEGER) STRICT;
CREATE INDEX requests_act ON requests(act) WHERE act IS NOT NULL;
CREATE TABLE changes(
  id INTEGER PRIMARY KEY, run INTEGER NOT NULL, at INTEGER NOT NULL, act INTEGER, cause INTEGER NOT NULL,
  list INTEGER NOT NULL, room INTEGER, op INTEGER NOT NULL CHECK(op BETWEEN 1 AND 4), entry TEXT,
  before TEXT, after TEXT) STRICT;
CREATE INDEX changes_act ON changes(act) WHERE act IS NOT NULL;
CREATE INDEX changes_lists ON changes(list, id) WHERE list <> 8 OR act IS NULL;
CREATE INDEX changes_cleared ON changes(list, room, id) WHERE op = 3;
CREATE TABLE contents(id INTEGER PRIMARY KEY, digest BLOB NOT NULL UNIQUE, entries BLOB NOT NULL) STRICT;
CREATE TABLE wholes(
  id INTEGER PRIMARY KEY, run INTEGER NOT NULL, at INTEGER NOT NULL, after_change INTEGER NOT NULL,
  list INTEGER NOT NULL, room INTEGER, content INTEGER NOT NULL,
  begins INTEGER NOT NULL CHECK(begins IN (0, 1))) STRICT;
CREATE TABLE stages(
  id INTEGER PRIMARY KEY, run INTEGER NOT NULL, at INTEGER NOT NULL, account INTEGER, socket INTEGER NOT NULL,
  stage INTEGER NOT NULL, text TEXT) STRICT;
CREATE TABLE gaps(
  id INTEGER PRIMARY KEY, run INTEGER NOT NULL, at INTEGER NOT NULL, until INTEGER NOT NULL,
  after_change INTEGER NOT NULL, facts INTEGER NOT NULL) STRICT;
CREATE TABLE evidence(
  id INTEGER PRIMARY KEY, act INTEGER NOT NULL, at INTEGER NOT NULL, room INTEGER, line TEXT) STRICT;
CREATE INDEX evidence_act ON evidence(act);
CREATE TABLE notes(
  id INTEGER PRIMARY KEY, person INTEGER NOT NULL, at INTEGER NOT NULL, author INTEGER,
  kind INTEGER NOT NULL CHECK(kind IN (1, 2)), text TEXT) STRICT;
CREATE INDEX notes_person ON notes(person);
CREATE VIRTUAL TABLE words USING fts5(
  text, content='', detail=none, columnsize=0, tokenize='unicode61 remove_diacritics 2');
)";

// What the watch keeps: a row a minute, what rang, and how often each guard was asked.
constexpr const char* Migration2 = R"(
CREATE TABLE samples(
  minute INTEGER PRIMARY KEY, online INTEGER NOT NULL, rooms INTEGER NOT NULL, people INTEGER NOT NULL,
  rated_bans INTEGER NOT NULL, rated_lines INTEGER NOT NULL, heard INTEGER NOT NULL, said INTEGER NOT NULL,
  dropped INTEGER NOT NULL, lines_waiting INTEGER NOT NULL, bans_waiting INTEGER NOT NULL,
  by_autoban INTEGER NOT NULL, by_autoword INTEGER NOT NULL, by_ghost INTEGER NOT NULL,
  by_icq INTEGER NOT NULL, by_chars INTEGER NOT NULL, by_ops INTEGER NOT NULL,
  by_others INTEGER NOT NULL) STRICT;
CREATE TABLE alarms(
  id INTEGER PRIMARY KEY, at INTEGER NOT NULL, kind INTEGER NOT NULL, subject TEXT NOT NULL,
  reason INTEGER NOT NULL CHECK(reason BETWEEN 0 AND 4), words TEXT NOT NULL) STRICT;
CREATE TABLE guard_counts(
  day INTEGER NOT NULL, guard TEXT NOT NULL, acted INTEGER NOT NULL CHECK(acted IN (0, 1)),
  count INTEGER NOT NULL, PRIMARY KEY(day, guard, acted)) STRICT, WITHOUT ROWID;
)";

} // namespace

std::string_view ActWord(ActKind kind) {
    const auto number = static_cast<std::size_t>(kind);
    return number < Words.size() ? Words[number] : std::string_view();
}

int ActOfWord(std::string_view word) {
    const auto lower = Lower(word);
    for (std::size_t number = 1; number < Words.size(); ++number)
        if (Words[number] == lower) return static_cast<int>(number);
    return 0;
}

DatabaseSpec LedgerSpec(const std::string& path, std::int64_t calendarSeconds) {
    DatabaseSpec spec;
    spec.path = path;
    spec.applicationId = 0x486C6467; // "Hldg"
    spec.migrations = {Migration1, Migration2};
    spec.tables = {"runs",     "networks", "accounts", "rooms",    "persons", "rules",       "causes",
                   "acts",     "requests", "changes",  "contents", "wholes",  "stages",      "gaps",
                   "evidence", "notes",    "words",    "samples",  "alarms",  "guard_counts"};
    spec.calendarSeconds = calendarSeconds;
    return spec;
}

} // namespace halyard
