#include "host/inspector/FilePage.h"
#include "host/PreferenceFile.h"
#include "PaneFolder.h"
#include "tests/host/PhoneFixture.h"

#include <QPushButton>
#include <QTableView>

// The inspector's table of the file, while builds of a bundle come and go that keep their values in different
// files.

namespace {

class FilePageReload : public PhoneTest {
protected:
    ~FilePageReload() override
    {
        filePage.reset();
        host::setPreferenceDomain("");
    }

    /// A build that keeps its values there. Each file holds its domain's name.
    void build(const std::string& name, const std::string& domain)
    {
        writeTestFile(fileOf(domain),
            "<plist version=\"1.0\"><dict><key>whose</key><string>" + domain + "</string></dict></plist>");
        pane.build(name);
        writeTestFile(pane.path() / "Pane.plist",
            "<plist version=\"1.0\"><dict><key>title</key><string>Pane</string><key>items</key><array><dict>"
            "<key>cell</key><string>PSSwitchCell</string><key>label</key><string>On</string><key>key</key>"
            "<string>on</string><key>defaults</key><string>"
                + domain + "</string></dict></array></dict></plist>");
    }
    void start()
    {
        auto chosen = options();
        chosen.bundle = pane.path().string();
        phone = std::make_unique<host::Phone>(chosen);
        static_cast<void>(phone->openBundle());
        phone->settle();
        filePage = std::make_unique<host::FilePage>(*phone, nullptr);
    }
    void reload()
    {
        static_cast<void>(phone->reloadBundle());
        phone->settle();
    }

    std::filesystem::path fileOf(const std::string& domain) const
    {
        return root() / "private/var/mobile/Library/Preferences" / (domain + ".plist");
    }
    std::string path() const
    {
        return filePage->findChild<QWidget*>(QStringLiteral("path"))->accessibleName().toStdString();
    }
    /// What the table shows of the file that the domain's name is in.
    std::string whose() const
    {
        const auto* const model = filePage->findChild<QTableView*>()->model();
        return model->rowCount() == 1
            ? model->index(0, host::FileModel::ValueColumn).data().toString().toStdString()
            : std::to_string(model->rowCount()) + " rows";
    }
    void press(const char* name) const { filePage->findChild<QPushButton*>(QLatin1String(name))->click(); }

    PaneFolder pane { folder.path() / "Pane.bundle" };
    std::unique_ptr<host::FilePage> filePage;
};

}

TEST_F(FilePageReload, FollowsAFirstBuildThatIsHealed)
{
    build("missing_symbol", "org.example.pane");
    start();
    EXPECT_EQ(whose(), "0 rows");
    build("good1", "org.example.pane");
    reload();
    EXPECT_TRUE(path().ends_with("/org.example.pane.plist")) << path();
    EXPECT_EQ(whose(), "org.example.pane");
    press("reset");
    press("confirm");
    EXPECT_FALSE(std::filesystem::exists(fileOf("org.example.pane")));
}

TEST_F(FilePageReload, FollowsABuildThatKeepsItsValuesElsewhere)
{
    build("good1", "org.example.first");
    start();
    EXPECT_EQ(whose(), "org.example.first");
    build("good2", "org.example.second");
    reload();
    EXPECT_TRUE(path().ends_with("/org.example.second.plist")) << path();
    EXPECT_EQ(whose(), "org.example.second");
}

TEST_F(FilePageReload, TakesBackAQuestionAboutTheFileBefore)
{
    build("good1", "org.example.first");
    start();
    press("reset");
    EXPECT_FALSE(filePage->findChild<QPushButton*>(QStringLiteral("confirm"))->parentWidget()->isHidden());
    build("good2", "org.example.second");
    reload();
    EXPECT_TRUE(filePage->findChild<QPushButton*>(QStringLiteral("confirm"))->parentWidget()->isHidden());
    EXPECT_TRUE(std::filesystem::exists(fileOf("org.example.first")));
    EXPECT_TRUE(std::filesystem::exists(fileOf("org.example.second")));
}
