#include "host/automation/line_reader.h"

#include <thread>
#include <utility>

namespace automation {
namespace {

void ReadAll(std::FILE* file, const std::function<void(std::string)>& line,
             const std::function<void()>& end) {
    std::string read;
    bool too_long = false;
    const auto give = [&] {
        if (!read.empty() && read.back() == '\r') read.pop_back();
        if (too_long || !read.empty()) line(too_long ? "{}" : std::move(read));
        read.clear();
        too_long = false;
    };
    for (int c = std::getc(file); c != EOF; c = std::getc(file)) {
        if (c == '\n') {
            give();
        } else if (read.size() >= kLongestLine) {
            too_long = true;
        } else {
            read.push_back(static_cast<char>(c));
        }
    }
    give();
    end();
}

}  // namespace

void ReadLines(std::FILE* file, std::function<void(std::string)> line, std::function<void()> end) {
    std::thread([file, line = std::move(line), end = std::move(end)] {
        ReadAll(file, line, end);
    }).detach();
}

}  // namespace automation
