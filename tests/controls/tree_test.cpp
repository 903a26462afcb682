#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

#include "controls/tree_view.h"

namespace controls {
namespace {

using Nodes = std::vector<int>;

// Two units, the first with folders in two depths:  Uno(A(B), C)  Dos
class TreeTest : public testing::Test {
  protected:
    TreeTest() : clicks(&tree, &TreeView::nodeClicked) {
        tree.resize(300, 300);
        tree.show();
    }

    [[nodiscard]] QPoint middleOf(Node node) const {
        return tree.visualRect(tree.nodes().place(node)).center();
    }
    [[nodiscard]] std::vector<int> clicked() {
        std::vector<int> nodes;
        for (const auto& arguments : clicks) nodes.push_back(arguments.at(0).toInt());
        clicks.clear();
        return nodes;
    }

    TreeView tree;
    QAbstractItemModelTester tester{tree.model(), QAbstractItemModelTester::FailureReportingMode::Fatal};
    Node one = tree.addNode(noNode, "Uno :", 7, 7);
    Node two = tree.addNode(noNode, "Dos :", 9, 9);
    Node a = tree.addNode(one, "A", 2, 3);
    Node b = tree.addNode(a, "B", 2, 3);
    Node c = tree.addNode(one, "C", 2, 3);
    QSignalSpy clicks;
};

TEST_F(TreeTest, RemovalTakesAllBelowAndClosesTheGapInTheIndices) {
    EXPECT_EQ(tree.addNode(99, "lost", 1, 1), noNode);
    tree.remove(a);
    EXPECT_FALSE(tree.nodes().contains(b));
    EXPECT_EQ(tree.nodes().indexOf(c), 3);
    EXPECT_EQ(tree.nodes().nodeAt(3), c);
    tree.remove(one);
    EXPECT_EQ(tree.nodes().indexOf(two), 1);
    EXPECT_TRUE(tree.nodes().isConsistent());

    const Node again = tree.addNode(noNode, "Uno :", 7, 7);
    EXPECT_FALSE(tree.nodes().contains(one)) << "an old handle must not name a new node";
    EXPECT_EQ(tree.nodes().indexOf(again), 2);
    tree.clear();
    EXPECT_EQ(tree.nodes().count() + tree.selected(), 0);
}

TEST_F(TreeTest, AClickSelectsAndOnlyThePlusSignOpens) {
    for (const auto key : {Qt::NoModifier, Qt::ControlModifier})
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, key, middleOf(one));
    EXPECT_EQ(clicked(), (Nodes{one, one}));
    EXPECT_EQ(tree.selected(), one);
    QTest::mouseDClick(tree.viewport(), Qt::LeftButton, {}, middleOf(one));
    EXPECT_FALSE(tree.isExpanded(one));

    clicks.clear();
    tree.setSelected(two);
    EXPECT_EQ(clicked(), Nodes{}) << "only the user clicks";
    const QRect text = tree.visualRect(tree.nodes().place(one));
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, {text.left() - 8, text.center().y()});
    EXPECT_TRUE(tree.isExpanded(one));
    EXPECT_EQ(clicked(), Nodes{});
    EXPECT_EQ(tree.selected(), two);
}

TEST_F(TreeTest, APressThatSlipsOntoAnotherRowClicksTheNodeThatItSelects) {
    for (const Nodes& expected : {Nodes{two}, Nodes{}}) {  // the second slip selects what was selected before
        QTest::mousePress(tree.viewport(), Qt::LeftButton, {}, middleOf(one));
        QMouseEvent slip(QEvent::MouseMove, middleOf(two), {}, Qt::NoButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(tree.viewport(), &slip);
        QTest::mouseRelease(tree.viewport(), Qt::LeftButton, {}, middleOf(two));
        EXPECT_EQ(clicked(), expected);
    }
}

TEST_F(TreeTest, KeysDoWhatTheMouseDoes) {
    tree.setSelected(one);
    for (const auto key : {Qt::Key_Right, Qt::Key_Down, Qt::Key_Down}) QTest::keyClick(&tree, key);
    EXPECT_EQ(clicked(), (Nodes{a, c})) << "the first key opens";
    QTest::keyClick(&tree, Qt::Key_Return);
    EXPECT_EQ(clicked(), Nodes{c});
    for (const auto end : {Qt::Key_Tab, Qt::Key_Return}) {
        tree.editLabel(one);
        auto* editor = tree.viewport()->findChild<QLineEdit*>();
        for (const auto key : {Qt::Key_Down, end}) QTest::keyClick(editor, key);
        EXPECT_EQ(clicked(), Nodes{}) << "it ends the edit and clicks nothing";
        EXPECT_EQ(tree.selected(), one);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    tree.setSelected(noNode);
    QTest::keyClick(&tree, Qt::Key_Home);
    EXPECT_EQ(clicked(), Nodes{one});
}

// Views are told of a closed node's first child only.
TEST_F(TreeTest, AllNodesCanBeReachedHoweverTheyAreOpened) {
    const Node d = tree.addNode(c, "D", 2, 3);
    const Node e = tree.addNode(c, "E", 2, 3);
    tree.setSelected(e);
    EXPECT_EQ(tree.selected(), e);
    EXPECT_FALSE(tree.visualRect(tree.nodes().place(d)).isEmpty());
    tree.setExpanded(one, false);
    tree.addNode(one, "F", 2, 3);
    Nodes below;
    for (int depth = 0; depth < 3; ++depth) {
        const Node parent = depth == 0 ? two : below.back();
        for (const char* name : {"x", "y", "z"}) below.push_back(tree.addNode(parent, name, 2, 3));
    }
    tree.remove(below.back());
    tree.remove(two);
    EXPECT_TRUE(tree.nodes().isConsistent());
}

// In a tree of its own: the tester of the others asks the model for all that there is.
TEST(Tree, TheAsteriskOpensTheWholeBranchThatWasNeverOpened) {
    TreeView tree;
    tree.resize(300, 400);
    tree.show();
    Nodes nodes{tree.addNode(noNode, "Uno :", 7, 7)};
    for (std::size_t parent : {0, 0, 0, 2, 2, 3, 3, 7})
        nodes.push_back(tree.addNode(nodes[parent], "folder", 2, 3));
    tree.setSelected(nodes[0]);
    QTest::keyClick(&tree, Qt::Key_Asterisk);
    for (const Node node : nodes) EXPECT_FALSE(tree.visualRect(tree.nodes().place(node)).isEmpty()) << node;
}

TEST_F(TreeTest, AClickHitsTheRowThatIsSeenThereWhileNodesPourIn) {
    tree.setExpanded(one, true);
    const TreeView::Filling filling(tree);
    for (int i = 0; i < 300; ++i) {
        const Node added = tree.addNode(a, QString::number(i), 2, 3);
        tree.setExpanded(a, true);
        if (i % 10 != 0) continue;
        tree.scrollTo(tree.nodes().place(added));
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, middleOf(added));
        ASSERT_EQ(tree.selected(), added);
        ASSERT_FALSE(tree.visualRect(tree.nodes().place(c)).isEmpty()) << "below all of them";
    }
}

}  // namespace
}  // namespace controls
