#pragma once

// A folder that goes with its test, and a small file of records in it.

#include "platform/Database.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <set>

namespace halyard {

struct TestFolder {
    TestFolder() {
        std::string name = testing::TempDir() + "halyard-XXXXXX";
        EXPECT_NE(mkdtemp(name.data()), nullptr);
        path = name;
    }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;
    ~TestFolder() { std::filesystem::remove_all(path); }

    std::string Path(const std::string& name) const { return path / name; }
    std::set<std::string> Names(const std::string& below = "") const {
        std::set<std::string> names;
        for (const auto& each : std::filesystem::directory_iterator(path / below))
            names.insert(each.path().filename());
        return names;
    }
    static std::string Bytes(const std::string& of) {
        if (!std::filesystem::is_regular_file(of)) return {};
        std::ifstream file(of, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    static void Put(const std::string& at, const std::string& bytes) {
        std::ofstream(at, std::ios::binary) << bytes;
    }

    std::filesystem::path path;
};

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
