#include "host/terminal/data_folder.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "platform/system.h"
#include "platform/text/file_path.h"
#include "platform/text/gbk.h"

namespace terminal {
namespace {

namespace fs = std::filesystem;

bool ReadAll(const fs::path& path, std::string& content) {
    std::ifstream file(path, std::ios::binary);
    content.assign(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    return file.good() || file.eof();
}

// Written beside and renamed, so that a full disk leaves no half file behind.
bool WriteAll(const fs::path& path, const std::string& content) {
    fs::path draft = path;
    draft += ".new";
    std::error_code error;
    {
        std::ofstream file(draft, std::ios::binary | std::ios::trunc);
        file.write(content.data(), static_cast<std::streamsize>(content.size()));
        file.close();
        if (!file) {
            fs::remove(draft, error);
            return false;
        }
    }
    fs::rename(draft, path, error);
    return !error;
}

std::string CopySample(const fs::path& from, const fs::path& to) {
    std::string content;
    if (!ReadAll(from, content)) return "cannot read " + from.string();
    if (from.extension() == ".ini") content = text::GbkFromUtf8(content);
    if (!WriteAll(to, content)) return "cannot write " + to.string();
    return {};
}

}  // namespace

std::string UserFolder() {
    struct Place {
        const char* variable;
        const char* below;
    };
    static constexpr Place kPlaces[] = {
        {"APPDATA", "goldterm"}, {"XDG_DATA_HOME", "goldterm"}, {"HOME", ".local/share/goldterm"}};
    for (const Place& place : kPlaces) {
        const char* base = std::getenv(place.variable);
        if (base && fs::path(base).is_absolute()) return (fs::path(base) / place.below).string();
    }
    return {};
}

std::string SampleFolder() {
    char program[MAX_PATH * 4] = "";
    GetModuleFileNameA(nullptr, program, sizeof program);
    const fs::path own = fs::path(text::ResolvePath(program)).parent_path();
    for (const char* below : {"../share/goldterm/config", "config"}) {
        std::error_code error;
        const fs::path folder = (own / below).lexically_normal();
        if (fs::is_directory(folder, error)) return folder.string();
    }
    return {};
}

std::string FillFolder(const std::string& folder, const std::string& samples) {
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) return "cannot make the folder " + folder;
    if (samples.empty()) return {};
    for (fs::recursive_directory_iterator entry(samples, error), end; !error && entry != end;
         entry.increment(error)) {
        const fs::path to = fs::path(folder) / entry->path().lexically_relative(samples);
        if (entry->is_directory()) {
            fs::create_directories(to, error);
            if (error) return "cannot make the folder " + to.string();
        } else if (!fs::exists(to, error)) {
            const std::string fault = CopySample(entry->path(), to);
            if (!fault.empty()) return fault;
        }
    }
    return error ? "cannot read the folder " + samples : std::string();
}

}  // namespace terminal
