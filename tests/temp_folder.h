// A folder of a test's own, gone with it.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace zorvant {

class TempFolder {
public:
    TempFolder() {
        std::string pattern = testing::TempDir() + "zorvantXXXXXX";
        path_ = std::string(mkdtemp(pattern.data())) + "/";
    }
    ~TempFolder() { std::filesystem::remove_all(path_); }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    /// With the separator at its end.
    const std::string& Path() const { return path_; }
    std::string operator/(const std::string& name) const { return path_ + name; }
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(path_))
            names.push_back(entry.path().filename());
        return names;
    }

private:
    std::string path_;
};

} // namespace zorvant
