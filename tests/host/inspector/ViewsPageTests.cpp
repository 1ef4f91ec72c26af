#include "host/inspector/ViewsPage.h"

#include "host/driver/ViewSearch.h"
#include "host/inspector/Inspector.h"
#include "host/inspector/ViewTreeModel.h"
#include "host/inspector/ViewWords.h"
#include "host/PhoneView.h"
#include "platform/UILabel.h"
#include "WindowTest.h"

#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTreeView>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace platform;
using host::ViewTreeModel;

namespace {

class ViewTree : public testing::Test {
protected:
    ViewTree()
    {
        for (int index = 0; index < 3; ++index)
            add(index);
        model.look(*window);
        for (const auto* const signal : { "dataChanged", "rowsInserted", "rowsRemoved" })
            told[signal] = 0;
        QObject::connect(&model, &QAbstractItemModel::dataChanged, &model, [&] { ++told["dataChanged"]; });
        QObject::connect(&model, &QAbstractItemModel::rowsInserted, &model,
            [&](const QModelIndex&, int first, int last) { told["rowsInserted"] += last - first + 1; });
        QObject::connect(&model, &QAbstractItemModel::rowsRemoved, &model,
            [&](const QModelIndex&, int first, int last) { told["rowsRemoved"] += last - first + 1; });
        QObject::connect(&model, &QAbstractItemModel::modelReset, &model, [&] { ++told["modelReset"]; });
    }

    Ref<UIView> add(int tag)
    {
        auto view = std::make_shared<UIView>(CGRect { 0, 0, 10, 10 });
        view->setTag(tag);
        window->addSubview(view);
        return view;
    }
    Ref<UIView> child(std::size_t index) const { return window->subviews().at(index); }
    /// Of the window's subviews, as the model has them.
    std::vector<long> tags() const
    {
        const auto root = model.index(0, 0);
        std::vector<long> result;
        for (int row = 0; row < model.rowCount(root); ++row)
            result.push_back(model.facts(model.index(row, 0, root)).tag);
        return result;
    }

    Ref<UIWindow> window = std::make_shared<UIWindow>(CGSize { 100, 100 });
    ViewTreeModel model;
    std::map<std::string, int> told;
};

using Told = std::map<std::string, int>;
using Tags = std::vector<long>;

class InspectorViewsPage : public WindowTest {
protected:
    InspectorViewsPage()
    {
        page = openPage<host::ViewsPage>("views");
        tree = page->findChild<QTreeView*>();
        model = tree->model();
    }

    /// Of the first view of this class, or with this content.
    QModelIndex find(const QString& text, int column = ViewTreeModel::ClassColumn) const
    {
        for (auto index = model->index(0, 0); index.isValid(); index = tree->indexBelow(index)) {
            if (index.siblingAtColumn(column).data().toString() == text)
                return index;
        }
        return {};
    }
    QString detail(const char* name) const { return page->findChild<QLabel*>(name)->text(); }
    QPushButton* pickButton() const { return page->findChild<QPushButton*>("pick"); }
    /// Of the phone as the window shows it, highlight included.
    QRgb shownAt(QPoint point) { return view().grab(QRect(point, QSize(1, 1))).toImage().pixel(0, 0); }
    QRgb pictureAt(QPoint point) { return phone().window().picture().at(point.x(), point.y()); }

    host::ViewsPage* page = nullptr;
    QTreeView* tree = nullptr;
    QAbstractItemModel* model = nullptr;

    static constexpr QPoint inEnabledRow { 200, 121 };
    static constexpr QPoint onEnabledLabel { 30, 121 };
};

}

TEST_F(ViewTree, TellsOnlyWhatChanged)
{
    model.look(*window);
    EXPECT_EQ(told, (Told { { "dataChanged", 0 }, { "rowsInserted", 0 }, { "rowsRemoved", 0 } }));
    child(1)->setAlpha(0.5);
    model.look(*window);
    EXPECT_EQ(told, (Told { { "dataChanged", 1 }, { "rowsInserted", 0 }, { "rowsRemoved", 0 } }));
}

TEST_F(ViewTree, FollowsViewsThatComeAndGo)
{
    add(3);
    model.look(*window);
    EXPECT_EQ(tags(), (Tags { 0, 1, 2, 3 }));
    child(1)->removeFromSuperview();
    model.look(*window);
    EXPECT_EQ(tags(), (Tags { 0, 2, 3 }));
    EXPECT_EQ(told, (Told { { "dataChanged", 0 }, { "rowsInserted", 1 }, { "rowsRemoved", 1 } }));
    window->addSubview(child(0));
    model.look(*window);
    EXPECT_EQ(tags(), (Tags { 2, 3, 0 }));
    while (!window->subviews().empty())
        child(0)->removeFromSuperview();
    model.look(*window);
    EXPECT_EQ(tags(), Tags {});
}

TEST_F(ViewTree, KnowsWhenAViewHasGone)
{
    const auto index = model.index(1, 0, model.index(0, 0));
    EXPECT_EQ(model.view(index), child(1).get());
    EXPECT_EQ(model.indexOf(*child(1)), index);
    const auto other = std::make_shared<UIView>();
    EXPECT_FALSE(model.indexOf(*other).isValid());
    child(1)->removeFromSuperview();
    EXPECT_EQ(model.view(index), nullptr);
    EXPECT_EQ(model.data(index, Qt::DisplayRole), "UIView");
}

TEST(ViewWords, SayWhatStretches)
{
    EXPECT_EQ(host::maskWords(0), "nothing");
    EXPECT_EQ(host::maskWords(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleBottomMargin),
        "width, bottom margin");
    EXPECT_EQ(host::maskWords(63), "width, height, left margin, right margin, top margin, bottom margin");
}

TEST(ViewWords, RoundNumbersToHundredths)
{
    EXPECT_EQ(host::rectWords({ 1, -0.001, 300.456, 0.5 }), "1, 0, 300.46 × 0.5");
    EXPECT_EQ(host::numberWords(1234567.891), "1234567.89");
}

TEST(ViewWords, NameColours)
{
    EXPECT_EQ(host::colorWords(std::nullopt), "");
    EXPECT_EQ(host::colorWords(UIColor::redColor().cgColor()), "#FF0000");
    EXPECT_EQ(host::colorWords(UIColor::colorWithWhiteAlpha(1, 0.5).cgColor()), "#FFFFFF 50%");
    EXPECT_EQ(host::colorWords(UIColor::clearColor().cgColor()), "clear");
}

TEST_F(InspectorViewsPage, ShowsEveryViewOfThePhone)
{
    EXPECT_EQ(model->index(0, 0).data().toString(), "UIWindow");
    const auto root = model->index(0, 0);
    EXPECT_EQ(root.siblingAtColumn(ViewTreeModel::FrameColumn).data().toString(), "0, 0, 375 × 667");
    EXPECT_EQ(root.siblingAtColumn(ViewTreeModel::ColorColumn).data().toString(), "#FFFFFF");
    EXPECT_EQ(root.siblingAtColumn(ViewTreeModel::ColorColumn).data(Qt::DecorationRole).value<QColor>(),
        QColor(Qt::white));
    const auto label = find("Vekora Now", ViewTreeModel::ContentColumn);
    EXPECT_EQ(label.data().toString(), "UILabel");
    EXPECT_EQ(find("UISwitch").siblingAtColumn(ViewTreeModel::ContentColumn).data().toString(), "off");
    EXPECT_EQ(find("UINavigationBar").isValid(), false);
    EXPECT_EQ(find("width, height", ViewTreeModel::MaskColumn).isValid(), true);
    EXPECT_EQ(find("hidden", ViewTreeModel::AlphaColumn).data(Qt::ForegroundRole).value<QColor>(),
        QColor(Qt::gray));
}

TEST_F(InspectorViewsPage, HasRoomForEveryColumnAtTheUsualWidth)
{
    window().resize(window().width() + host::Inspector::usualWidth - window().inspector()->width(), 700);
    ASSERT_TRUE(waitUntil([&] { return window().inspector()->width() == host::Inspector::usualWidth; }));
    EXPECT_EQ(tree->horizontalScrollBar()->maximum(), 0);
    EXPECT_GE(tree->columnWidth(ViewTreeModel::MaskColumn), tree->fontMetrics().horizontalAdvance("nothing"));
}

TEST_F(InspectorViewsPage, FollowsThePhone)
{
    QTest::mouseClick(&view(), Qt::LeftButton, {}, { 334, 121 });
    EXPECT_TRUE(waitUntil([&] {
        return find("UISwitch").siblingAtColumn(ViewTreeModel::ContentColumn).data().toString() == "on";
    }));
    QTest::mouseClick(&view(), Qt::LeftButton, {}, { 187, 490 });
    EXPECT_TRUE(waitUntil([&] { return find("VKColorPickerView_H").isValid(); }));
    EXPECT_FALSE(find("Vekora Now", ViewTreeModel::ContentColumn).isValid());
}

TEST_F(InspectorViewsPage, LooksAtNothingWhileItIsNotShown)
{
    window().inspector()->setCurrentPage("file");
    QSignalSpy changes(model, &QAbstractItemModel::dataChanged);
    QTest::mouseClick(&view(), Qt::LeftButton, {}, { 334, 121 });
    phone().settle();
    EXPECT_FALSE(page->isBehind());
    EXPECT_EQ(changes.count(), 0);
    window().inspector()->setCurrentPage("views");
    EXPECT_GT(changes.count(), 0);
    QTest::mouseClick(&view(), Qt::LeftButton, {}, { 334, 121 });
    phone().settle();
    EXPECT_TRUE(page->isBehind());
}

TEST_F(InspectorViewsPage, DescribesTheSelectedView)
{
    tree->setCurrentIndex(find("Vekora Now", ViewTreeModel::ContentColumn));
    EXPECT_EQ(detail("Class"), "UILabel");
    EXPECT_EQ(detail("Text"), "Vekora Now");
    EXPECT_TRUE(detail("On screen").startsWith("15, 187, ")) << detail("On screen").toStdString();
    EXPECT_TRUE(detail("Text colour").endsWith("#007AFF")) << detail("Text colour").toStdString();
    EXPECT_EQ(detail("Alignment"), "left, 1 line at most");
    EXPECT_EQ(detail("Border"), "none");
    EXPECT_EQ(detail("Corner radius"), "0");
    EXPECT_EQ(detail("Alpha"), "1");
    EXPECT_EQ(detail("Value"), "");
    tree->setCurrentIndex(find("UISwitch"));
    EXPECT_EQ(detail("Value"), "off");
    EXPECT_EQ(detail("Enabled"), "yes");
    EXPECT_EQ(detail("Text"), "");
    QTest::mouseClick(&view(), Qt::LeftButton, {}, { 334, 121 });
    EXPECT_TRUE(waitUntil([&] { return detail("Value") == "on"; }));
}

TEST_F(InspectorViewsPage, ShowsMarkedUpTextsAsTheyStand)
{
    const auto index = find("Vekora Now", ViewTreeModel::ContentColumn);
    tree->setCurrentIndex(index);
    const std::string text = "say \"hi\" & <b>go</b>";
    auto* const label = dynamic_cast<UILabel*>(host::viewsShowing(phone().window(), "Vekora Now").front());
    ASSERT_TRUE(label);
    label->setText(text);
    EXPECT_TRUE(waitUntil([&] { return detail("Text") == QString::fromStdString(text); }))
        << detail("Text").toStdString();
    EXPECT_EQ(page->findChild<QLabel*>("Text")->textFormat(), Qt::PlainText);
    EXPECT_EQ(find(QString::fromStdString(text), ViewTreeModel::ContentColumn).row(), index.row());
    const auto tip = tree->currentIndex().siblingAtColumn(ViewTreeModel::ContentColumn).data(Qt::ToolTipRole);
    EXPECT_TRUE(tip.toString().contains("&lt;b&gt;")) << tip.toString().toStdString();
}

TEST_F(InspectorViewsPage, HighlightsTheSelectedViewAboveThePicture)
{
    const auto plain = pictureAt(inEnabledRow);
    EXPECT_EQ(shownAt(inEnabledRow), plain);
    const auto cell = find("Enabled", ViewTreeModel::ContentColumn).parent().parent();
    tree->setCurrentIndex(cell);
    EXPECT_NE(shownAt(inEnabledRow), plain);
    EXPECT_EQ(pictureAt(inEnabledRow), plain);
    window().inspector()->setCurrentPage("file");
    EXPECT_EQ(shownAt(inEnabledRow), plain);
    window().inspector()->setCurrentPage("views");
    EXPECT_NE(shownAt(inEnabledRow), plain);
    window().setInspectorShown(false);
    EXPECT_EQ(shownAt(inEnabledRow), plain);
}

TEST_F(InspectorViewsPage, HighlightsTheViewUnderTheMouseWhileItIsThere)
{
    const auto plain = shownAt(inEnabledRow);
    const auto cell = find("Enabled", ViewTreeModel::ContentColumn).parent().parent();
    tree->scrollTo(cell);
    QTest::mouseMove(tree->viewport(), tree->visualRect(cell).center());
    EXPECT_TRUE(waitUntil([&] { return shownAt(inEnabledRow) != plain; }));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(tree->viewport(), &leave);
    EXPECT_EQ(shownAt(inEnabledRow), plain);
}

TEST_F(InspectorViewsPage, SurvivesTheDeathOfTheHighlightedView)
{
    QTest::mouseClick(&view(), Qt::LeftButton, {}, { 187, 490 });
    ASSERT_TRUE(waitUntil([&] { return find("VKColorPickerView_H").isValid(); }));
    tree->setCurrentIndex(find("VKColorPickerView_H"));
    phone().goBack();
    tree->setCurrentIndex(find("UIWindow"));
    EXPECT_TRUE(waitUntil([&] { return !find("VKColorPickerView_H").isValid(); }));
    EXPECT_EQ(detail("Class"), "UIWindow");
}

TEST_F(InspectorViewsPage, FindsTheViewThatIsPickedInThePhone)
{
    pickButton()->click();
    QTest::mouseClick(&view(), Qt::LeftButton, {}, { 334, 121 });
    // The switch is found and not switched.
    EXPECT_FALSE(pickButton()->isChecked());
    const auto current = tree->currentIndex();
    EXPECT_TRUE(current.data() == "UISwitch" || current.parent().data() == "UISwitch");
    EXPECT_EQ(find("UISwitch").siblingAtColumn(ViewTreeModel::ContentColumn).data().toString(), "off");
    EXPECT_TRUE(tree->viewport()->rect().intersects(tree->visualRect(current)));

    pickButton()->click();
    QTest::mouseClick(&view(), Qt::LeftButton, {}, onEnabledLabel);
    EXPECT_EQ(detail("Text"), "Enabled");
    QTest::mouseClick(&view(), Qt::LeftButton, {}, { 334, 121 });
    EXPECT_TRUE(waitUntil([&] {
        return find("UISwitch").siblingAtColumn(ViewTreeModel::ContentColumn).data().toString() == "on";
    }));
}

TEST_F(InspectorViewsPage, PicksNothingAfterEscape)
{
    pickButton()->click();
    QTest::keyClick(&view(), Qt::Key_Escape);
    EXPECT_FALSE(pickButton()->isChecked());
    QTest::mouseClick(&view(), Qt::LeftButton, {}, { 334, 121 });
    EXPECT_TRUE(waitUntil([&] {
        return find("UISwitch").siblingAtColumn(ViewTreeModel::ContentColumn).data().toString() == "on";
    }));
    EXPECT_FALSE(tree->currentIndex().isValid());
}

TEST_F(InspectorViewsPage, HighlightsWhatWouldBePicked)
{
    const auto plain = shownAt(onEnabledLabel);
    pickButton()->click();
    QTest::mouseMove(&view(), onEnabledLabel);
    EXPECT_TRUE(waitUntil([&] { return shownAt(onEnabledLabel) != plain; }));
    pickButton()->click();
    EXPECT_EQ(shownAt(onEnabledLabel), plain);
}
