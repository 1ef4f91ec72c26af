#include "PaneFolder.h"
#include "platform/UIAlertView.h"
#include "platform/UIButton.h"
#include "tests/host/PhoneFixture.h"

using namespace platform;

namespace {

class PhoneReload : public PhoneTest {
protected:
    PhoneReload()
    {
        pane.build("good1");
        auto chosen = options();
        chosen.bundle = pane.path().string();
        open(chosen);
    }

    std::string reload()
    {
        const auto error = phone->reloadBundle();
        phone->settle();
        return error.value_or("");
    }
    std::string title() const { return phone->navigation().topViewController()->title(); }
    bool errorIsShown() const
    {
        return dynamic_cast<host::ErrorPage*>(phone->navigation().topViewController()) != nullptr;
    }
    double offset() const { return page().table().contentOffset().y; }

    PaneFolder pane { folder.path() / "Pane.bundle" };
};

class AlertRemover final : public NSObject {
public:
    void remove() { alert->removeFromSuperview(); }

    UIAlertView* alert = nullptr;
};
const auto alertRemover = registerClass<AlertRemover>("AlertRemover").method("remove", &AlertRemover::remove);

}

TEST_F(PhoneReload, RunsTheNewCode)
{
    tapRow("Bump");
    EXPECT_EQ(title(), "Bumped by build 1");
    pane.link("good2");
    EXPECT_EQ(reload(), "");
    EXPECT_EQ(title(), "Pane");
    tapRow("Bump");
    EXPECT_EQ(title(), "Bumped by build 2");
}

TEST_F(PhoneReload, ComesBackToTheSamePagesAndScrollPositions)
{
    page().table().setContentOffset({ 0, 55 });
    phone->settle();
    tap({ 100, 64 + 10 }); // What is left of the first row.
    ASSERT_EQ(title(), "More");
    page().table().setContentOffset({ 0, 321 });
    pane.link("good2");
    EXPECT_EQ(reload(), "");
    EXPECT_EQ(title(), "More");
    EXPECT_EQ(offset(), 321);
    EXPECT_TRUE(page().specifierForID("New in build 2"));
    phone->goBack();
    phone->settle();
    EXPECT_EQ(title(), "Pane");
    EXPECT_EQ(offset(), 55);
}

TEST_F(PhoneReload, TakesResourcesAloneWithoutLoadingTheModuleAgain)
{
    const auto* const before = phone->bundle();
    pane.writeRows("Renamed");
    EXPECT_EQ(reload(), "");
    EXPECT_EQ(title(), "Renamed");
    EXPECT_EQ(phone->bundle(), before);
}

TEST_F(PhoneReload, SaysWhatAndWhereWhenTheBundleCannotBeLoaded)
{
    const auto installed = std::string("/Library/PreferenceBundles/Pane.bundle/");
    tapRow("More");
    pane.link("missing_symbol");
    EXPECT_EQ(reload(), installed + "Pane has the unresolved symbol pane::functionThatNobodyWrote(int).");
    EXPECT_TRUE(errorIsShown());

    const auto whole = PaneFolder::bytesOf("good2");
    pane.linkBytes(whole.substr(0, whole.size() / 2));
    EXPECT_EQ(reload(),
        installed + "Pane is not a loadable module (it ends after " + std::to_string(whole.size() / 2)
            + " bytes, in the middle).");
    EXPECT_TRUE(errorIsShown());

    pane.build("good2");
    std::filesystem::remove(pane.path() / "Info.plist");
    EXPECT_EQ(reload(), "There is no Info.plist in /Library/PreferenceBundles/Pane.bundle.");

    pane.writeInfo("PaneLessPage");
    EXPECT_EQ(reload(), "There is no such principal class as PaneLessPage in " + installed + "Pane.");

    pane.writeInfo("PaneNoPage");
    EXPECT_EQ(
        reload(), "The principal class PaneNoPage of /Library/PreferenceBundles/Pane.bundle is no page.");

    std::filesystem::remove_all(pane.path());
    EXPECT_EQ(reload(), "There is no folder " + pane.path().string() + ".");
    EXPECT_TRUE(errorIsShown());

    pane.build("good2");
    EXPECT_EQ(reload(), "");
    EXPECT_EQ(title(), "More") << "the page before all these";
    EXPECT_TRUE(page().specifierForID("New in build 2"));
}

TEST_F(PhoneReload, TakesAlertsAndTouchesAwayWithThePages)
{
    UIAlertView::make({ .message = "Sure?", .cancelButtonTitle = "No" })->show();
    phone->settle();
    phone->window().touchBegan({ 187, 333 });
    pane.link("good2");
    EXPECT_EQ(reload(), "");
    EXPECT_EQ(UIAlertView::topmost(), nullptr);
    phone->window().touchEnded({ 187, 333 });
    phone->settle();
    EXPECT_EQ(title(), "Pane");
}

TEST_F(PhoneReload, LetsAnAlertGoByItselfWhenItsFieldEndsEditing)
{
    auto alert = UIAlertView::make({ .message = "Name?", .cancelButtonTitle = "No" });
    alert->setAlertViewStyle(UIAlertViewStyle::PlainTextInput);
    alert->show();
    phone->settle();
    ASSERT_TRUE(alert->textFieldAtIndex(0)->isFirstResponder());
    AlertRemover remover;
    remover.alert = alert.get();
    alert->textFieldAtIndex(0)->addTargetActionForControlEvents(
        &remover, "remove", UIControlEventEditingDidEnd);
    const platform::WeakObject shown(alert.get());
    alert.reset();
    ASSERT_TRUE(shown.get());
    pane.link("good2");
    EXPECT_EQ(reload(), "");
    EXPECT_EQ(shown.get(), nullptr);
    EXPECT_EQ(UIAlertView::topmost(), nullptr);
}

TEST_F(PhoneReload, TellsWhoKeepsViewsBeforeTheirCodeGoes)
{
    auto kept = std::static_pointer_cast<UIView>(page().view().shared_from_this());
    int calls = 0;
    const auto number = phone->whenPagesGo([&] {
        ++calls;
        kept.reset();
    });
    pane.link("good2");
    EXPECT_EQ(reload(), "");
    EXPECT_EQ(calls, 1);
    phone->stopTellingWhenPagesGo(number);
    EXPECT_EQ(reload(), "");
    EXPECT_EQ(calls, 1);
}

TEST_F(PhoneReload, StaysUpWhenSomebodyKeepsAPageOfTheFormerBuild)
{
    const auto kept = std::static_pointer_cast<UIViewController>(page().shared_from_this());
    pane.link("good2");
    testing::internal::CaptureStderr();
    EXPECT_EQ(reload(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
        "Objects of the former build are still alive (2: PanePage, PaneView), so its code stays.\n");
    kept->viewWillAppear(false);
    tapRow("Bump");
    EXPECT_EQ(title(), "Bumped by build 2");
}

TEST_F(PhoneReload, ErrorPagesOfferToTryAgainWhereSomebodyListens)
{
    bool tried = false;
    phone->setTryAgain([&] { tried = true; });
    pane.link("missing_symbol");
    EXPECT_NE(reload(), "");
    auto& errorPage = dynamic_cast<host::ErrorPage&>(*phone->navigation().topViewController());
    for (const auto& view : errorPage.view().subviews()) {
        if (const auto* button = dynamic_cast<UIButton*>(view.get())) {
            const auto frame = button->convertRectToView(button->bounds(), nullptr);
            tap({ frame.midX(), frame.midY() });
            break;
        }
    }
    EXPECT_TRUE(tried);
}

TEST_F(PhoneReload, ShowsHowALongErrorEndsWhenItIsScrolled)
{
    phone->setScreen({ 320, 480 }, 1);
    std::vector<std::string> places;
    for (int place = 0; place < 30; ++place)
        places.push_back("a::very::longName<With, Arguments>::number" + std::to_string(place) + "(int)");
    phone->showError({ .reason = "It crashed.", .places = places });
    phone->settle();
    auto& scroll = dynamic_cast<UIScrollView&>(phone->navigation().topViewController()->view());
    EXPECT_GT(scroll.maximumOffset(), 0);
    const auto& last = *scroll.subviews().back();
    EXPECT_LE(last.frame().maxY(), scroll.contentSize().height);
    for (const auto& view : scroll.subviews()) {
        EXPECT_GE(view->frame().minX(), 0);
        EXPECT_LE(view->frame().maxX(), 320);
    }
}
