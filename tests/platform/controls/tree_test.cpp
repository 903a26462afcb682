#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <memory>

#include "platform/controls/tree_view.h"

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
    void click(Node node, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(tree.viewport(), button, {}, middleOf(node));
    }
    [[nodiscard]] std::vector<int> clicked() {
        std::vector<int> nodes;
        for (const auto& arguments : clicks) nodes.push_back(arguments.at(0).toInt());
        clicks.clear();
        return nodes;
    }

    TreeView tree;
    QAbstractItemModelTester tester{tree.model(), QAbstractItemModelTester::FailureReportingMode::Fatal};
    Node one = tree.addNode(noNode, "Uno :", 7, 7, "Uno :");
    Node two = tree.addNode(noNode, "Dos :", 9, 9, "Dos :");
    Node a = tree.addNode(one, "A", 2, 3);
    Node b = tree.addNode(a, "B", 2, 3);
    Node c = tree.addNode(one, "C", 2, 3);
    QSignalSpy clicks;
};

TEST_F(TreeTest, NodesKnowTheirPlace) {
    EXPECT_EQ(tree.nodes().fullPath(b), "Uno :\\A\\B");
    EXPECT_EQ(tree.nodes().parentOf(b), a);
    EXPECT_EQ(tree.nodes().parentOf(one), noNode);
    EXPECT_EQ(tree.nodes().firstChild(one), a);
    EXPECT_EQ(tree.nodes().nextSibling(a), c);
    EXPECT_EQ(tree.nodes().nextSibling(c), noNode);
    EXPECT_EQ(tree.nodes().firstChild(noNode), one);
    EXPECT_EQ(tree.nodes().lastChild(noNode), two);
    EXPECT_EQ(tree.nodes().childCount(one), 2);
    EXPECT_EQ(tree.nodes().indexOf(c), 5);
    EXPECT_EQ(tree.nodes().nodeAt(2), two);
    EXPECT_EQ(tree.nodes().nodeOfKey("Dos :"), two);
    EXPECT_EQ(tree.nodes().picture(two), 9);
    EXPECT_EQ(tree.addNode(99, "lost", 1, 1), noNode);
    EXPECT_TRUE(tree.nodes().isConsistent());
}

TEST_F(TreeTest, RemovalTakesAllBelowAndClosesTheGapInTheIndices) {
    tree.remove(a);
    EXPECT_FALSE(tree.nodes().contains(b));
    EXPECT_EQ(tree.nodes().text(b), "");
    EXPECT_EQ(tree.nodes().indexOf(c), 3);
    EXPECT_EQ(tree.nodes().nodeAt(3), c);
    EXPECT_EQ(tree.nodes().count(), 3);
    tree.remove(one);
    EXPECT_EQ(tree.nodes().indexOf(two), 1);
    EXPECT_EQ(tree.nodes().nodeOfKey("Uno :"), noNode);
    EXPECT_TRUE(tree.nodes().isConsistent());

    const Node again = tree.addNode(noNode, "Uno :", 7, 7, "Uno :");
    EXPECT_FALSE(tree.nodes().contains(one)) << "an old handle must not name a new node";
    EXPECT_EQ(tree.nodes().indexOf(again), 2);
    tree.clear();
    EXPECT_EQ(tree.nodes().count(), 0);
    EXPECT_EQ(tree.selected(), noNode);
    EXPECT_TRUE(tree.nodes().isConsistent());
}

TEST_F(TreeTest, AClickSelectsAndOnlyThePlusSignOpens) {
    click(one);
    EXPECT_EQ(clicked(), Nodes{one});
    EXPECT_EQ(tree.selected(), one);
    QSignalSpy doubles(&tree, &TreeView::nodeDoubleClicked);
    QTest::mouseDClick(tree.viewport(), Qt::LeftButton, {}, middleOf(one));
    EXPECT_EQ(doubles.count(), 1);
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

TEST_F(TreeTest, KeysDoWhatTheMouseDoes) {
    tree.setSelected(one);
    QTest::keyClick(&tree, Qt::Key_Right);  // opens
    EXPECT_TRUE(tree.isExpanded(one));
    EXPECT_EQ(clicked(), Nodes{});
    QTest::keyClick(&tree, Qt::Key_Down);
    QTest::keyClick(&tree, Qt::Key_Down);
    EXPECT_EQ(clicked(), (Nodes{a, c}));
    QTest::keyClick(&tree, Qt::Key_Return);
    EXPECT_EQ(clicked(), Nodes{c});
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
    tree.setSelected(two);
    QTest::keyClick(&tree, Qt::Key_Asterisk);  // opens the whole branch
    for (const Node node : below) EXPECT_FALSE(tree.visualRect(tree.nodes().place(node)).isEmpty());
    tree.remove(below.back());
    tree.remove(two);
    EXPECT_TRUE(tree.nodes().isConsistent());
}

TEST_F(TreeTest, FirstKeyTakesTheNodeThatHasTheFocus) {
    tree.setSelected(noNode);
    tree.selectionModel()->setCurrentIndex(tree.model()->index(0, 0), QItemSelectionModel::NoUpdate);
    ASSERT_EQ(tree.selected(), noNode);
    QTest::keyClick(&tree, Qt::Key_Down);
    EXPECT_EQ(tree.selected(), one);
    EXPECT_EQ(clicked(), Nodes{one});
}

TEST_F(TreeTest, ARightPressClicksTheNodeUnderItBeforeTheMenuComes) {
    tree.setSelected(one);
    std::vector<std::pair<Qt::MouseButton, Node>> presses;
    QObject::connect(&tree, &TreeView::mousePressed, &tree,
                     [&](Qt::MouseButton button) { presses.emplace_back(button, tree.selected()); });
    click(two, Qt::RightButton);
    EXPECT_EQ(clicked(), Nodes{two});
    click(two, Qt::RightButton);
    EXPECT_EQ(clicked(), Nodes{});
    ASSERT_EQ(presses.size(), 2U);
    EXPECT_EQ(presses[0], std::pair(Qt::RightButton, two));
}

TEST_F(TreeTest, ALabelEditProposesATextAndTheListenerDecides) {
    QSignalSpy edits(&tree, &TreeView::afterLabelEdit);
    const auto type = [&](Node node, const char* text, Qt::Key end) {
        tree.editLabel(node);
        auto* editor = tree.viewport()->findChild<QLineEdit*>();
        if (editor == nullptr) return false;
        editor->selectAll();
        QTest::keyClicks(editor, text);
        QTest::keyClick(editor, end);
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return true;
    };
    ASSERT_TRUE(type(one, "Tres", Qt::Key_Return));
    ASSERT_EQ(edits.count(), 1);
    EXPECT_EQ(edits[0].at(1).toString(), "Tres");
    EXPECT_EQ(tree.nodes().text(one), "Uno :");
    EXPECT_TRUE(clicked().empty()) << "Enter ended the edit and clicked nothing";

    QObject::connect(&tree, &TreeView::afterLabelEdit, &tree,
                     [&](int node, const QString& text) { tree.setText(node, text + " :"); });
    ASSERT_TRUE(type(one, "Tres", Qt::Key_Return));
    EXPECT_EQ(tree.nodes().text(one), "Tres :");
    ASSERT_TRUE(type(one, "Cuatro", Qt::Key_Escape));
    EXPECT_EQ(tree.nodes().text(one), "Tres :");
    EXPECT_EQ(edits.count(), 2);
    EXPECT_FALSE(type(a, "x", Qt::Key_Return)) << "folders have no label edit";
}

// Adding must not cost more the more there is, in an open branch least of all.
TEST(TreeSize, AHundredThousandNodesUnderAnOpenUnit) {
    TreeView tree;
    tree.show();
    const Node unit = tree.addNode(noNode, "unit", 1, 1);
    tree.addNode(unit, "first", 2, 3);
    tree.setExpanded(unit, true);
    Node parent = unit;
    for (int added = 0; added < 100'000; ++added) {
        const Node node = tree.addNode(added % 3 == 0 ? unit : parent, "folder", 2, 3);
        if (added % 5 == 0) parent = node;
    }
    EXPECT_EQ(tree.nodes().count(), 100'002);
    EXPECT_TRUE(tree.nodes().isConsistent());
    tree.remove(unit);
    EXPECT_EQ(tree.nodes().count(), 0);
}

}  // namespace
}  // namespace controls
