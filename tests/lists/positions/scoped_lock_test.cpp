#include "lists/scoped_lock.h"

#include <gtest/gtest.h>

#include "tests/support/gbk_text.h"
#include "tests/support/temp_folder.h"

namespace {

TEST(ScopedLock, WritesNothingForTheLists) {
    const testing_support::TempFolder folder;
    CListLock lock;
    {
        const CScopedLock held(lock);
        const CScopedLock again(lock);
    }
    EXPECT_EQ("(missing)", folder.Read(u8"lock.txt"));
}

TEST(ScopedLock, WritesDownItsStepsUnderItsNumber) {
    const testing_support::TempFolder folder;
    CListLock lock;
    {
        const CScopedLock held(lock, 7);
        EXPECT_GBK_EQ("7开始锁!\r\n7成功锁!\r\n", folder.Read(u8"lock.txt"));
    }
    { const CScopedLock nothing(nullptr, 12); }
    EXPECT_GBK_EQ(
        "7开始锁!\r\n7成功锁!\r\n7解锁!\r\n"
        "12开始锁!\r\n12失败锁!\r\n",
        folder.Read(u8"lock.txt"));
}

}  // namespace
