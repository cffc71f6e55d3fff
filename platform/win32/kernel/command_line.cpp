#include "platform/win32/kernel/command_line.h"

#include <algorithm>

#include "platform/text/gbk.h"

namespace winbase {
namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

void SkipBlanks(std::string_view& line) {
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
}

/// Takes the next character off the line, both bytes of a wide one.
std::string_view TakeChar(std::string_view& line) {
    const std::string_view character = line.substr(0, text::CharLength(line));
    line.remove_prefix(character.size());
    return character;
}

std::string TakeProgram(std::string_view& line) {
    std::string program;
    bool quoted = false;
    while (!line.empty() && (quoted || !IsBlank(line.front()))) {
        const std::string_view character = TakeChar(line);
        if (character == "\"") {
            quoted = !quoted;
        } else {
            program += character;
        }
    }
    return program;
}

/// Before a quote two backslashes are one, and an odd one makes the quote a plain character;
/// anywhere else they stand for themselves.
std::string_view TakeBackslashes(std::string_view& line, std::string& argument) {
    const std::size_t count = std::min(line.find_first_not_of('\\'), line.size());
    line.remove_prefix(count);
    const bool before_quote = line.starts_with('"');
    argument.append(before_quote ? count / 2 : count, '\\');
    return before_quote && count % 2 == 1 ? TakeChar(line) : std::string_view();
}

std::string TakeArgument(std::string_view& line) {
    std::string argument;
    bool quoted = false;
    while (!line.empty() && (quoted || !IsBlank(line.front()))) {
        if (line.front() == '\\') {
            argument += TakeBackslashes(line, argument);
            continue;
        }
        const std::string_view character = TakeChar(line);
        if (character != "\"") {
            argument += character;
        } else if (quoted && line.starts_with('"')) {
            argument += TakeChar(line);
        } else {
            quoted = !quoted;
        }
    }
    return argument;
}

}  // namespace

std::vector<std::string> SplitCommandLine(std::string_view line) {
    std::vector<std::string> arguments{TakeProgram(line)};
    for (SkipBlanks(line); !line.empty(); SkipBlanks(line)) {
        arguments.push_back(TakeArgument(line));
    }
    return arguments;
}

std::vector<std::string> ProgramCandidates(std::string_view line) {
    SkipBlanks(line);
    if (line.starts_with('"')) return {TakeProgram(line)};
    std::vector<std::string> candidates;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const bool last = i + 1 == line.size();
        if (!IsBlank(line[i]) && (last || IsBlank(line[i + 1]))) {
            candidates.emplace_back(line.substr(0, i + 1));
        }
    }
    return candidates;
}

}  // namespace winbase
