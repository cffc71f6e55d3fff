#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>

#include "session/gold_login_dlg.h"
#include "session/msg_dlg.h"
#include "tests/pages/layout.h"
#include "tests/pages/test_module.h"
#include "tests/support/gbk_text.h"

namespace {

/// A window of a template, without the page's class.
class Plain : public CDialog {
public:
    explicit Plain(const toolkit::DialogTemplate& dialog, CWnd& frame) {
        Create(dialog.id, &frame);
    }
};

template <class Do>
void ForEachTemplate(const Do& look) {
    for (const toolkit::TemplateTable& table : tests::PageTables()) {
        for (const toolkit::DialogTemplate& dialog : table) {
            SCOPED_TRACE(dialog.id);
            look(dialog);
        }
    }
}

TEST(Templates, HaveNumbersOfTheirOwn) {
    std::set<UINT> numbers;
    ForEachTemplate([&](const toolkit::DialogTemplate& dialog) {
        EXPECT_TRUE(numbers.insert(dialog.id).second) << "twice";
        EXPECT_NE(dialog.id, 10008U) << "this one is the shared empty template";
    });
    EXPECT_EQ(numbers.size(), 31U);
}

TEST(Templates, NameEachControlOnce) {
    ForEachTemplate([](const toolkit::DialogTemplate& dialog) {
        std::set<int> ids;
        for (const toolkit::DialogControl& control : dialog.controls) {
            if (control.id == -1) continue;
            EXPECT_TRUE(ids.insert(control.id).second) << control.id << " twice";
        }
    });
}

TEST(Templates, HoldTheirControlsSideBySideWithRoomForTheTexts) {
    const std::map<UINT, std::vector<tests::AllowedOverlap>> allowed = {
        // The box shows its mark only; the label covers the rest of it.
        {CGoldLoginDlg::IDD, {{CGoldLoginDlg::kKeepAccount, CGoldLoginDlg::kKeepAccountLabel}}},
    };
    tests::PageFrame frame;
    ForEachTemplate([&](const toolkit::DialogTemplate& dialog) {
        Plain page(dialog, frame);
        ASSERT_NE(page.GetSafeHwnd(), nullptr);
        const auto found = allowed.find(dialog.id);
        const auto overlaps =
            found != allowed.end() ? found->second : std::vector<tests::AllowedOverlap>{};
        EXPECT_THAT(tests::LayoutFaults(page, overlaps), testing::IsEmpty());
    });
}

TEST(Templates, OpenTheTextBoxAt560By227DialogUnits) {
    const toolkit::DialogTemplate* box = AfxGetModuleState()->FindTemplate(CMsgDlg::IDD);
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->width, 560);
    EXPECT_EQ(box->height, 227);
}

}  // namespace
