#include "platform/PSSpecifier.h"
#include "platform/PSTextFieldSpecifier.h"

#include <gtest/gtest.h>

#include <limits>

using namespace platform;

namespace {

class Target : public NSObject {
public:
    void store(std::optional<PropertyValue> value, PSSpecifier* row)
    {
        stored = value;
        storedFor = row;
    }
    std::optional<PropertyValue> read(PSSpecifier* row)
    {
        readFor = row;
        return stored;
    }
    void act() { ++acts; }
    void actWith(PSSpecifier* row) { actedFor = row; }

    std::optional<PropertyValue> stored;
    PSSpecifier* storedFor = nullptr;
    PSSpecifier* readFor = nullptr;
    PSSpecifier* actedFor = nullptr;
    int acts = 0;
};

const auto registration = registerClass<Target>("SpecifierTarget")
                              .method("store:row:", &Target::store)
                              .method("read:", &Target::read)
                              .method("act", &Target::act)
                              .method("actWith:", &Target::actWith);

Ref<PSSpecifier> row(NSObject* target, std::string set = {}, std::string get = {})
{
    return PSSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(
        "Name", target, std::move(set), std::move(get), nullptr, PSCellType::Switch, nullptr);
}

}

TEST(PSSpecifier, KeepsNameKindAndTarget)
{
    Target target;
    auto specifier = row(&target);
    EXPECT_EQ(specifier->name(), "Name");
    EXPECT_EQ(specifier->cellType(), PSCellType::Switch);
    EXPECT_EQ(specifier->target(), &target);
    specifier->setPropertyForKey("Label", "label");
    EXPECT_EQ(specifier->name(), "Name");
    specifier->setName("Other");
    EXPECT_EQ(specifier->name(), "Other");
}

TEST(PSSpecifier, KeepsThePlatformsNumbers)
{
    EXPECT_EQ(static_cast<int>(PSCellType::Group), 0);
    EXPECT_EQ(static_cast<int>(PSCellType::Link), 1);
    EXPECT_EQ(static_cast<int>(PSCellType::Switch), 6);
    EXPECT_EQ(static_cast<int>(PSCellType::StaticText), 7);
    EXPECT_EQ(static_cast<int>(PSCellType::EditText), 8);
    EXPECT_EQ(static_cast<int>(PSCellType::Button), 13);
    EXPECT_EQ(static_cast<int>(PSCellType::Spinner), 15);
}

TEST(PSSpecifier, HoldsPropertiesOfAnyKind)
{
    auto specifier = row(nullptr);
    EXPECT_EQ(specifier->propertyForKey("title"), nullptr);
    specifier->setPropertyForKey(5, "title");
    specifier->setPropertyForKey("buttonColor", "title");
    EXPECT_EQ(*specifier->propertyForKey("title"), PropertyValue("buttonColor"));
    specifier->removePropertyForKey("title");
    specifier->removePropertyForKey("title");
    EXPECT_EQ(specifier->propertyForKey("title"), nullptr);
}

TEST(PSSpecifier, IsIdentifiedByIdThenKeyThenName)
{
    auto specifier = row(nullptr);
    EXPECT_EQ(specifier->identifier(), "Name");
    specifier->setPropertyForKey("theKey", "key");
    EXPECT_EQ(specifier->identifier(), "theKey");
    specifier->setPropertyForKey(3, "id");
    EXPECT_EQ(specifier->identifier(), "theKey");
    specifier->setPropertyForKey("theID", "id");
    EXPECT_EQ(specifier->identifier(), "theID");
}

TEST(PSSpecifier, IsEnabledUnlessItsPropertySaysOtherwise)
{
    auto specifier = row(nullptr);
    EXPECT_TRUE(specifier->isEnabled());
    specifier->setPropertyForKey(false, "enabled");
    EXPECT_FALSE(specifier->isEnabled());
    specifier->setPropertyForKey(1, "enabled");
    EXPECT_TRUE(specifier->isEnabled());
    specifier->setPropertyForKey("0", "enabled");
    EXPECT_FALSE(specifier->isEnabled());
}

TEST(PSSpecifier, SendsItsMessagesToTheTarget)
{
    Target target;
    auto specifier = row(&target, "store:row:", "read:");
    specifier->performSetterWithValue(60);
    EXPECT_EQ(target.stored, PropertyValue(60));
    EXPECT_EQ(target.storedFor, specifier.get());
    EXPECT_EQ(specifier->performGetter(), PropertyValue(60));
    EXPECT_EQ(target.readFor, specifier.get());
    specifier->setButtonAction("act");
    specifier->performAction();
    EXPECT_EQ(target.acts, 1);
    specifier->setButtonAction("actWith:");
    specifier->performAction();
    EXPECT_EQ(target.actedFor, specifier.get());
}

TEST(PSSpecifier, DoesNothingForUnknownNamesAndMissingTargets)
{
    Target target;
    for (const auto& specifier :
        { row(&target), row(&target, "no:such:", "nothing:"), row(nullptr, "store:row:", "read:") }) {
        specifier->setButtonAction("unknown");
        specifier->performSetterWithValue(true);
        specifier->performAction();
        EXPECT_EQ(specifier->performGetter(), std::nullopt);
    }
    EXPECT_EQ(target.stored, std::nullopt);
}

TEST(PSSpecifier, KnowsWhenItsTargetHasGone)
{
    auto target = std::make_shared<Target>();
    auto specifier = row(target.get(), "store:row:", "read:");
    target = nullptr;
    EXPECT_EQ(specifier->target(), nullptr);
    specifier->performSetterWithValue(true);
    EXPECT_EQ(specifier->performGetter(), std::nullopt);
}

TEST(PSSpecifier, FindsTitlesByEqualValues)
{
    auto specifier = row(nullptr);
    specifier->setValuesTitles({ 15, 60, "60", 7.5 }, { "15 minutes", "1 hour" });
    EXPECT_EQ(*specifier->titleForValue(60), "1 hour");
    EXPECT_EQ(*specifier->titleForValue(60.0), "1 hour");
    EXPECT_EQ(*specifier->titleForValue("60"), "60");
    EXPECT_EQ(*specifier->titleForValue(7.5), "7.5");
    EXPECT_EQ(specifier->titleForValue(61), nullptr);
    specifier->setValuesTitles({ 1 }, { "one", "too many" });
    EXPECT_EQ(specifier->titles(), (std::vector<std::string> { "one" }));
}

TEST(PSSpecifier, WritesValuesAsText)
{
    EXPECT_EQ(textOfPropertyValue("text"), "text");
    EXPECT_EQ(textOfPropertyValue(42), "42");
    EXPECT_EQ(textOfPropertyValue(true), "1");
    EXPECT_EQ(textOfPropertyValue(0.5), "0.5");
    EXPECT_EQ(textOfPropertyValue(2.0), "2");
    EXPECT_EQ(textOfPropertyValue(-0.001), "0");
    EXPECT_EQ(textOfPropertyValue(100.0), "100");
    EXPECT_EQ(textOfPropertyValue(std::numeric_limits<double>::infinity()), "");
    EXPECT_EQ(textOfPropertyValue(PropertyArray {}), "");
    EXPECT_EQ(textOfPropertyValue(1e300).size(), 301u);
}

TEST(PSTextFieldSpecifier, HasAPlaceholder)
{
    auto specifier = PSTextFieldSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(
        "Button Text:", nullptr, {}, {}, nullptr, PSCellType::EditText, nullptr);
    EXPECT_EQ(specifier->placeholder(), "");
    specifier->setPlaceholder("Vekora");
    EXPECT_EQ(specifier->placeholder(), "Vekora");
    EXPECT_EQ(specifier->cellType(), PSCellType::EditText);
}
