// How long programs take from their launch to their first frame, headless: the gallery against a
// program that only opens FreeType and draws the same texts, the terminal against the gallery.
// Two that are compared are launched in turn.

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "bench/ratio.h"

namespace {

constexpr int kLaunches = 60;

std::string NextToThisProgram(const char* name) {
    char path[4096] = "";
    const ssize_t length = readlink("/proc/self/exe", path, sizeof path - 1);
    const std::string self(path, length > 0 ? static_cast<std::size_t>(length) : 0);
    return self.substr(0, self.rfind('/') + 1) + name;
}

/// Seconds until the program has ended; stops the benchmark when it fails.
double Launch(const std::vector<std::string>& command) {
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (const std::string& word : command) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = fork();
    if (child == 0) {
        execv(arguments[0], arguments.data());
        _exit(127);
    }
    int status = 0;
    waitpid(child, &status, 0);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        std::fprintf(stderr, "%s failed\n", arguments[0]);
        std::exit(1);
    }
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double FastTenth(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 10];
}

MEASURE("start.first_frame_over_freetype_only") {
    char texts[] = "/tmp/gallery_texts_XXXXXX";
    const int file = mkstemp(texts);
    if (file >= 0) close(file);
    const std::string gallery = NextToThisProgram("gallery");
    const std::string least = NextToThisProgram("freetype_only");
    Launch({gallery, "--texts", texts});
    std::vector<double> ours;
    std::vector<double> theirs;
    for (int round = 0; round < kLaunches; ++round) {
        ours.push_back(Launch({gallery, "--first-frame"}));
        theirs.push_back(Launch({least, texts}));
    }
    unlink(texts);
    return FastTenth(ours) / FastTenth(theirs);
}

// With an account that is there already, until the sign-in is on show.
MEASURE("app.first_frame_over_gallery") {
    char folder[] = "/tmp/goldterm_XXXXXX";
    if (!mkdtemp(folder)) {
        std::perror("mkdtemp");
        std::exit(1);
    }
    setenv("XDG_DATA_HOME", folder, 1);
    const std::string terminal = NextToThisProgram("goldterm");
    const std::string gallery = NextToThisProgram("gallery");
    Launch({terminal, "--first-frame"});
    std::vector<double> ours;
    std::vector<double> theirs;
    for (int round = 0; round < kLaunches; ++round) {
        ours.push_back(Launch({terminal, "--first-frame"}));
        theirs.push_back(Launch({gallery, "--first-frame"}));
    }
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
    return FastTenth(ours) / FastTenth(theirs);
}

}  // namespace
