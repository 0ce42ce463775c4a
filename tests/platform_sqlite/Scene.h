#pragma once

// A small file of records in a folder that goes with its test.

#include "platform/Database.h"
#include "tests/platform_sqlite/TestFolder.h"

namespace halyard {

constexpr std::int64_t Today = 1'795'478'400; // 2026-11-24

/// A table of lines, to which version 2 adds whose they are.
inline DatabaseSpec Lines(const std::string& path, std::size_t version = 1, const std::string& vfs = "") {
    std::vector<std::string> steps{
        "CREATE TABLE line (id INTEGER PRIMARY KEY, text TEXT NOT NULL UNIQUE) STRICT;",
        "CREATE TABLE person (name TEXT PRIMARY KEY) STRICT;"
        "ALTER TABLE line ADD COLUMN who TEXT REFERENCES person;"};
    steps.resize(version);
    return {path, 0x48616C79, steps, {"line"}, Today, vfs};
}

inline Database::Job Runs(const std::string& sql) {
    return [sql](Connection& file) { file.Execute(sql); };
}

inline Database::Job Says(const std::vector<std::string>& lines) {
    return [lines](Connection& file) {
        for (const auto& line : lines)
            file.Prepare("INSERT INTO line (text) VALUES (?)").Bind(1, line).Step();
    };
}

inline std::vector<std::string> AllLines(Connection& file) {
    std::vector<std::string> lines;
    auto& rows = file.Prepare("SELECT text FROM line ORDER BY id");
    while (rows.Step()) lines.push_back(rows.Text(0));
    return lines;
}

} // namespace halyard
