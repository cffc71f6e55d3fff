#include "platform/win32/controls/tree_items.h"

#include <gtest/gtest.h>

namespace winbase {
namespace {

class TreeItemsTest : public ::testing::Test {
protected:
    TreeItem& Add(TreeItem& parent, const char* text, HTREEITEM after = TVI_LAST) {
        TreeItem& item = tree_.Insert(parent, after);
        item.text = text;
        return item;
    }

    std::string Rows() {
        std::string rows;
        for (const TreeItem* item : tree_.rows()) {
            rows += item->text + std::to_string(tree_.Level(*item));
        }
        return rows;
    }

    TreeItems tree_;
};

TEST_F(TreeItemsTest, RowsShowWhatIsExpanded) {
    TreeItem& r = Add(tree_.root(), "R");
    TreeItem& a = Add(r, "A");
    Add(r, "B");
    Add(a, "x");
    TreeItem& s = Add(tree_.root(), "S");
    EXPECT_EQ("R0S0", Rows());
    tree_.SetExpanded(a, true);
    EXPECT_EQ("R0S0", Rows());
    EXPECT_EQ(-1, tree_.RowOf(a));
    tree_.SetExpanded(r, true);
    EXPECT_EQ("R0A1x2B1S0", Rows());
    EXPECT_EQ(4, tree_.RowOf(s));
    EXPECT_EQ(&s, tree_.AtRow(4));
    EXPECT_EQ(nullptr, tree_.AtRow(5));
    EXPECT_EQ(nullptr, tree_.AtRow(-1));
    tree_.SetExpanded(r, false);
    EXPECT_EQ("R0S0", Rows());
}

TEST_F(TreeItemsTest, PlacesFollowTheSiblingOrTheEnds) {
    TreeItem& b = Add(tree_.root(), "b");
    Add(tree_.root(), "d");
    Add(tree_.root(), "a", TVI_FIRST);
    Add(tree_.root(), "c", b.handle);
    TreeItem& other = Add(b, "x");
    Add(tree_.root(), "e", other.handle);
    EXPECT_EQ("a0b0c0d0e0", Rows());
    EXPECT_EQ("c", tree_.Sibling(b, 1)->text);
    EXPECT_EQ("a", tree_.Sibling(b, -1)->text);
    EXPECT_EQ(nullptr, tree_.Sibling(b, -2));
    EXPECT_EQ(nullptr, tree_.Sibling(b, 4));
}

TEST_F(TreeItemsTest, RemovingTakesAllBelowAndHandlesDoNotComeBack) {
    TreeItem& r = Add(tree_.root(), "R");
    TreeItem& a = Add(r, "A");
    TreeItem& x = Add(a, "x");
    const HTREEITEM gone = x.handle;
    const std::vector<HTREEITEM> order = tree_.Subtree(r);
    EXPECT_EQ((std::vector<HTREEITEM>{x.handle, a.handle, r.handle}), order);
    EXPECT_TRUE(tree_.IsBelow(x, r));
    EXPECT_FALSE(tree_.IsBelow(r, x));
    tree_.Remove(r);
    EXPECT_EQ(0u, tree_.count());
    EXPECT_EQ("", Rows());
    Add(tree_.root(), "S");
    EXPECT_EQ(nullptr, tree_.Find(gone));
    EXPECT_EQ(nullptr, tree_.Find(nullptr));
    EXPECT_EQ(nullptr, tree_.Find(TVI_ROOT));
}

// Neither rows nor removal recurse: a chain of this depth would use up the stack.
TEST_F(TreeItemsTest, DepthIsNoLimit) {
    TreeItem* at = &tree_.root();
    for (int level = 0; level < 200000; ++level) {
        at = &tree_.Insert(*at, TVI_LAST);
        tree_.SetExpanded(*at, true);
    }
    EXPECT_EQ(200000u, tree_.rows().size());
    tree_.Remove(*tree_.root().children[0]);
    EXPECT_EQ(0u, tree_.count());
}

}  // namespace
}  // namespace winbase
