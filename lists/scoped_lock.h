#pragma once

#include "platform/system.h"

/// Guards the records of a live list against readers on other threads. The page owns one.
class CListLock {
public:
    CListLock() { ::InitializeCriticalSection(&m_section); }
    ~CListLock() { ::DeleteCriticalSection(&m_section); }
    CListLock(const CListLock&) = delete;
    CListLock& operator=(const CListLock&) = delete;

    CRITICAL_SECTION* Section() { return &m_section; }

private:
    CRITICAL_SECTION m_section;
};

/// Number that the lists hand to their locks. One above 0 has them write down who waits for whom.
inline constexpr int kLockTrace = 0;

/// Holds a section as long as it lives; the same thread may hold it several times over.
class CScopedLock {
public:
    /// With a number above 0, entering and leaving are appended to lock.txt under it. A null
    /// section is not held.
    explicit CScopedLock(CRITICAL_SECTION* section, int trace);
    explicit CScopedLock(CListLock& lock, int trace = kLockTrace)
        : CScopedLock(lock.Section(), trace) {}
    ~CScopedLock();
    CScopedLock(const CScopedLock&) = delete;
    CScopedLock& operator=(const CScopedLock&) = delete;

private:
    CRITICAL_SECTION* m_section;
    int m_nTrace;
};
