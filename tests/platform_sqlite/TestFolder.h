#pragma once

// A folder that goes with its test.

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <set>
#include <string>

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

} // namespace halyard
