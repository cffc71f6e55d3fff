#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace testing_support {

/// An empty folder that is the current one while the object lives and goes with it.
class TempFolder {
public:
    TempFolder() : before_(std::filesystem::current_path()) {
        const auto ticks = std::chrono::steady_clock::now().time_since_epoch().count();
        // Programs that run side by side may start in one tick: the first to make a folder has it.
        for (auto number = ticks; path_.empty() || !std::filesystem::create_directory(path_);) {
            path_ =
                std::filesystem::temp_directory_path() / ("gold_test_" + std::to_string(number++));
        }
        std::filesystem::current_path(path_);
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::current_path(before_, ignored);
        std::filesystem::remove_all(path_, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }

    /// Writes the bytes as they are, folders of the name included. `name` is UTF-8.
    void Write(std::u8string_view name, std::string_view bytes) const {
        const std::filesystem::path file = path_ / name;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << bytes;
    }

    /// The bytes of a file, or "(missing)".
    std::string Read(std::u8string_view name) const {
        std::ifstream file(path_ / name, std::ios::binary);
        if (!file) return "(missing)";
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

private:
    std::filesystem::path before_;
    std::filesystem::path path_;
};

}  // namespace testing_support
