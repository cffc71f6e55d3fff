#include "lists/scoped_lock.h"

#include <cstdio>
#include <memory>

#include "platform/text/file_path.h"

namespace {

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

/// The file is opened for each line, so that nothing is lost when the program hangs or ends.
void WriteStep(int trace, const char* step) {
    if (trace <= 0) return;
    const std::unique_ptr<std::FILE, FileCloser> file(text::OpenFile("lock.txt", "ab+"));
    if (file != nullptr) std::fprintf(file.get(), "%d%s!\r\n", trace, step);
}

}  // namespace

CScopedLock::CScopedLock(CRITICAL_SECTION* section, int trace)
    : m_section(section), m_nTrace(trace) {
    WriteStep(m_nTrace, "开始锁");
    if (m_section != nullptr) ::EnterCriticalSection(m_section);
    WriteStep(m_nTrace, m_section != nullptr ? "成功锁" : "失败锁");
}

CScopedLock::~CScopedLock() {
    if (m_section == nullptr) return;
    ::LeaveCriticalSection(m_section);
    WriteStep(m_nTrace, "解锁");
}
