#include "host/CommandRules.h"
#include "host/OptionRules.h"

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <sstream>

using host::Options;
using host::parseOptions;
using Mode = Options::Mode;

namespace {

/// Sets a variable of the environment, or takes it away, for as long as it lives.
class Variable {
public:
    Variable(const char* name, const char* value)
        : _name(name)
    {
        if (const char* old = std::getenv(name))
            _old = old;
        value ? setenv(name, value, 1) : unsetenv(name);
    }
    ~Variable() { _old ? setenv(_name, _old->c_str(), 1) : unsetenv(_name); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* _name;
    std::optional<std::string> _old;
};

Options options(const std::vector<std::string>& words)
{
    const auto result = parseOptions(words);
    const auto* error = std::get_if<std::string>(&result);
    EXPECT_EQ(error, nullptr) << *error;
    return error ? Options {} : std::get<Options>(result);
}

std::string error(const std::vector<std::string>& words)
{
    const auto result = parseOptions(words);
    const auto* sentence = std::get_if<std::string>(&result);
    return sentence ? *sentence : "no error";
}

TEST(Options, ChoosesTheSubCommandByTheFirstWord)
{
    EXPECT_EQ(options({}).mode, Mode::Window);
    EXPECT_EQ(options({ "drive" }).mode, Mode::Drive);
    EXPECT_EQ(options({ "observe" }).mode, Mode::Observe);
    EXPECT_EQ(options({ "gallery" }).mode, Mode::Gallery);
    EXPECT_EQ(options({ "--help" }).mode, Mode::Help);
    EXPECT_EQ(options({ "drive", "--help" }).mode, Mode::Help);
    EXPECT_EQ(options({ "--version" }).mode, Mode::Version);
}

TEST(Options, HasDefaults)
{
    const Variable all("LC_ALL", "de_DE.UTF-8");
    const Variable zone("TZ", "Asia/Tokyo");
    const Variable data("XDG_DATA_HOME", "/somewhere/data");
    const auto defaults = options({ "drive" });
    EXPECT_EQ(defaults.phone.size, (platform::CGSize { 375, 667 }));
    EXPECT_EQ(defaults.phone.scale, 2);
    EXPECT_EQ(defaults.phone.locale, "de_DE");
    EXPECT_EQ(defaults.phone.timeZone, "Asia/Tokyo");
    EXPECT_EQ(defaults.phone.now, std::nullopt);
    EXPECT_EQ(defaults.phone.root, "/somewhere/data/vekora");
    EXPECT_EQ(defaults.phone.defaults, "");
    EXPECT_FALSE(defaults.phone.toggle);
    EXPECT_FALSE(defaults.phone.statusBar);
    EXPECT_FALSE(defaults.keepGoing);
    EXPECT_EQ(defaults.script, "-");
}

TEST(Options, TakesEveryOptionOfTheDriver)
{
    const auto all = options({ "drive", "--root", "/r", "--size", "320x480", "--scale", "3", "--locale",
        "ar_EG", "--timezone", "Europe/Berlin", "--now", "2014-01-05T10:17:42.6", "--toggle", "--statusbar",
        "--keep-going", "--bundle", "/b", "script" });
    EXPECT_EQ(all.phone.root, "/r");
    EXPECT_EQ(all.phone.size, (platform::CGSize { 320, 480 }));
    EXPECT_EQ(all.phone.scale, 3);
    EXPECT_EQ(all.phone.locale, "ar_EG");
    EXPECT_EQ(all.phone.timeZone, "Europe/Berlin");
    EXPECT_EQ(all.phone.now, "2014-01-05T10:17:42.6");
    EXPECT_TRUE(all.phone.toggle);
    EXPECT_TRUE(all.phone.statusBar);
    EXPECT_TRUE(all.keepGoing);
    EXPECT_EQ(all.phone.bundle, "/b");
    EXPECT_EQ(all.script, "script");
}

TEST(Options, TakesAValueAfterAnEqualsSign)
{
    EXPECT_EQ(options({ "drive", "--scale=1" }).phone.scale, 1);
    EXPECT_EQ(options({ "drive", "--root=/a=b" }).phone.root, "/a=b");
}

TEST(Options, TakesTheLastOfAnOptionGivenTwice)
{
    EXPECT_EQ(options({ "drive", "--scale", "1", "--scale", "3" }).phone.scale, 3);
}

TEST(Options, TakesOptionsAfterTheScriptToo)
{
    const auto both = options({ "drive", "-", "--keep-going" });
    EXPECT_EQ(both.script, "-");
    EXPECT_TRUE(both.keepGoing);
}

TEST(Options, TakesTheDirectionOfRows)
{
    EXPECT_EQ(options({}).phone.direction, host::TextDirection::OfTheLocale);
    EXPECT_EQ(options({ "--direction", "rtl" }).phone.direction, host::TextDirection::RightToLeft);
    EXPECT_EQ(options({ "--direction=ltr" }).phone.direction, host::TextDirection::LeftToRight);
    EXPECT_EQ(options({ "drive", "--direction=locale" }).phone.direction, host::TextDirection::OfTheLocale);
}

TEST(Options, TakesTheDomainOfThePreferences)
{
    EXPECT_EQ(options({ "--defaults", "net.example.pane" }).phone.defaults, "net.example.pane");
    EXPECT_EQ(options({ "observe", "--defaults=net.example.pane" }).phone.defaults, "net.example.pane");
    EXPECT_EQ(error({ "--defaults", "a/b" }), "--defaults takes a domain, as net.example.pane, not \"a/b\".");
}

TEST(Options, KnowsWhetherTheScaleWasGiven)
{
    EXPECT_FALSE(options({}).scaleIsGiven);
    EXPECT_TRUE(options({ "--scale", "2" }).scaleIsGiven);
}

TEST(Options, TakesAnyWordAfterTwoDashesAsTheScript)
{
    EXPECT_EQ(options({ "drive", "--", "--odd" }).script, "--odd");
}

TEST(Options, MakesARelativeRootAbsolute)
{
    EXPECT_EQ(options({ "drive", "--root", "phone" }).phone.root,
        (std::filesystem::current_path() / "phone").string());
}

TEST(Options, FallsBackToTheHomeFolder)
{
    const Variable data("XDG_DATA_HOME", nullptr);
    const Variable home("HOME", "/home/someone");
    EXPECT_EQ(options({}).phone.root, "/home/someone/.local/share/vekora");
}

TEST(Options, SaysWhenThereIsNoHomeFolder)
{
    const Variable data("XDG_DATA_HOME", nullptr);
    const Variable home("HOME", nullptr);
    EXPECT_NE(error({ "drive" }).find("--root"), std::string::npos);
    EXPECT_EQ(options({ "drive", "--root", "/r" }).phone.root, "/r");
}

TEST(Options, ReadsTheEnvironmentsLocale)
{
    const Variable all("LC_ALL", nullptr);
    const Variable messages("LC_MESSAGES", nullptr);
    for (const auto& [value, expected] : { std::pair { "fr_FR.UTF-8", "fr_FR" }, { "de_DE@euro", "de_DE" },
             { "C", "en_US" }, { "C.UTF-8", "en_US" }, { "POSIX", "en_US" }, { "", "en_US" },
             { "nonsense", "en_US" }, { "en", "en" } }) {
        const Variable language("LANG", value);
        EXPECT_EQ(options({}).phone.locale, expected) << value;
    }
    const Variable language("LANG", "fr_FR");
    const Variable first("LC_ALL", "it_IT");
    EXPECT_EQ(options({}).phone.locale, "it_IT");
}

TEST(Options, TakesKnownLocalesHoweverTheyAreSpelt)
{
    for (const auto& [value, expected] :
        { std::pair { "en_US", "en_US" }, { "de-DE", "de_DE" }, { "de_de", "de_DE" }, { "ar", "ar" },
            { "sr_Latn_RS", "sr_Latn_RS" }, { "pt_BR.UTF-8", "pt_BR" }, { "de_US", "de_US" } })
        EXPECT_EQ(options({ "drive", "--locale", value }).phone.locale, expected) << value;
}

TEST(Options, RefusesBadValuesWithASentenceThatQuotesThem)
{
    const std::pair<const char*, std::vector<const char*>> bad[] = {
        { "--size",
            { "", "375", "x", "375x", "x667", "0x667", "375x0", "-1x5", "1.5x2", "375X667", "375x667x2",
                "nanxinf", "99999x5", "5x99999", " 1x1" } },
        { "--scale", { "", "0", "4", "1.5", "two", "-1", "22" } },
        { "--direction", { "", "left", "RTL", "rtl " } },
        { "--locale", { "", "xx_YY", "en_ZQ", "en_US/..", "_US", "e", "qqq", "en_Xqzz_US", "en US" } },
        { "--timezone", { "", "Mars/Olympus", "Europe/Nowhere", "GMT+25:99", "Etc/Unknown", "../x" } },
        { "--now", { "", "yesterday", "2014-02-30T00:00:00", "2014-01-05T10:17:60", "1388912262" } },
    };
    for (const auto& [option, values] : bad) {
        for (const char* value : values) {
            const auto sentence = error({ "drive", option, value });
            EXPECT_TRUE(sentence.starts_with(option)) << option << " " << value << ": " << sentence;
            EXPECT_NE(sentence.find('"' + std::string(value) + '"'), std::string::npos) << sentence;
            EXPECT_EQ(sentence.find('\n'), std::string::npos);
        }
    }
    EXPECT_NE(error({ "drive", "--root", "" }), "no error");
    EXPECT_NE(error({ "drive", "--bundle", "" }), "no error");
}

TEST(Options, RefusesWhatItDoesNotKnow)
{
    EXPECT_EQ(error({ "drive", "--frobnicate" }), "There is no option \"--frobnicate\"; --help lists them.");
    EXPECT_EQ(error({ "drive", "-x" }), "There is no option \"-x\"; --help lists them.");
    EXPECT_EQ(error({ "paint" }), "There is no command \"paint\"; --help lists them.");
    EXPECT_EQ(error({ "--scale", "2", "drive" }), "drive must be the first word.");
    EXPECT_EQ(error({ "drive", "a", "b" }), "drive takes one script, but there is \"b\" too.");
    EXPECT_NE(error({ "observe", "a" }), "no error");
    EXPECT_EQ(error({ "drive", "--scale" }), "--scale needs a value.");
    EXPECT_EQ(error({ "drive", "--toggle=1" }), "--toggle takes no value.");
}

TEST(Options, RefusesWhatAnotherCommandTakes)
{
    EXPECT_EQ(error({ "--keep-going" }), "--keep-going is no option of the window.");
    EXPECT_EQ(error({ "observe", "--size", "1x1" }), "--size is no option of observe.");
    EXPECT_EQ(options({ "observe", "--root", "/r", "--timezone", "UTC" }).phone.root, "/r");
}

TEST(Options, ExplainsOneCommandWhenItIsNamed)
{
    EXPECT_EQ(options({ "--help" }).topic, "");
    EXPECT_EQ(options({ "help" }).topic, "");
    EXPECT_EQ(options({ "help", "drive" }).topic, "drive");
    EXPECT_EQ(options({ "drive", "--help" }).topic, "drive");
    EXPECT_EQ(error({ "help", "fly" }), "There is no command \"fly\"; --help lists them.");
    EXPECT_EQ(error({ "help", "drive", "observe" }), "help takes one command, but there is \"observe\" too.");
}

TEST(Options, HelpNeedsNoHomeFolder)
{
    const Variable data("XDG_DATA_HOME", nullptr);
    const Variable home("HOME", nullptr);
    EXPECT_EQ(options({ "help" }).mode, Mode::Help);
}

TEST(Options, HelpNamesEveryCommandAndOptionOnALineOfItsOwn)
{
    const auto help = host::helpText();
    for (const auto& rule : host::commandRules())
        EXPECT_NE(help.find("\n  " + std::string(rule.name.empty() ? "(none)" : rule.name) + ' '),
            std::string::npos)
            << rule.name;
    for (const auto& rule : host::optionRules())
        EXPECT_NE(help.find("\n  " + std::string(rule.name) + ' '), std::string::npos) << rule.name;
}

TEST(Options, HelpOfACommandLeavesOutWhatItDoesNotTake)
{
    for (const auto& command : host::commandRules()) {
        if (command.name.empty())
            continue;
        const auto help = host::helpText(command.name);
        EXPECT_TRUE(help.starts_with("Usage: vekora-host " + std::string(command.name))) << help;
        for (const auto& rule : host::optionRules()) {
            const bool listed = help.find("\n  " + std::string(rule.name) + ' ') != std::string::npos;
            EXPECT_EQ(listed, (rule.where & command.place) != 0) << command.name << rule.name;
        }
    }
}

TEST(Options, EveryExampleIsACommandLine)
{
    for (const auto& example : host::usageExamples()) {
        std::vector<std::string> words;
        std::istringstream line { std::string(example.line) };
        for (std::string word; line >> word;)
            words.push_back(word);
        const auto command = host::commandNamed(example.command);
        ASSERT_NE(command, nullptr) << example.line;
        EXPECT_EQ(options(words).mode, command->mode) << example.line;
    }
}

}
