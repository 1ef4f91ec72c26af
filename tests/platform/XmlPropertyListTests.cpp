#include "platform/qt/PropertyListFormat.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <plist/plist.h>

using namespace platform;

namespace {

/// Without the declaration and the document type.
std::string bodyOf(const PropertyList& list)
{
    const auto xml = xmlFromPropertyList(list);
    if (!xml)
        return "nothing";
    const auto start = xml->find("<plist version=\"1.0\">\n");
    const std::string end = "</plist>\n";
    EXPECT_NE(start, std::string::npos);
    EXPECT_TRUE(xml->ends_with(end));
    const auto body = xml->substr(start + 22);
    return body.substr(0, body.size() - end.size());
}

std::optional<PropertyValue> parse(const std::string& element)
{
    return parsePropertyList(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">" + element + "</plist>\n");
}

/// The value of an element on its own, or of nothing when it spoils the list it stands in.
std::optional<PropertyValue> parseInList(const std::string& element)
{
    const auto list = parse("<dict><key>before</key><true/><key>it</key>" + element + "</dict>");
    if (!list || !list->dictionary())
        return std::nullopt;
    return list->dictionary()->at("it");
}

std::string nested(const std::string& open, const std::string& close, int depth)
{
    std::string text;
    for (int level = 0; level < depth; ++level)
        text += open;
    for (int level = 0; level < depth; ++level)
        text += close;
    return text;
}

TEST(XmlPropertyList, IsWrittenToTheCharacter)
{
    const PropertyList list {
        { "b", true },
        { "a", false },
        { "int", -5 },
        { "real", 0.1 },
        { "text", "<a> & \"b\" 'c'" },
        { "Zero", "" },
        { "date", NSDate(410641689.75) },
        { "data", PropertyData { 1, 2, 3, 4 } },
        { "list", PropertyArray { 1, PropertyList { { "k", "v" } }, PropertyArray {} } },
        { "none", PropertyList {} },
        { "\xC3\xA4", 1 },
        { "k&<>", 2 },
    };
    EXPECT_EQ(bodyOf(list),
        R"(<dict>
	<key>Zero</key>
	<string></string>
	<key>a</key>
	<false/>
	<key>b</key>
	<true/>
	<key>data</key>
	<data>
	AQIDBA==
	</data>
	<key>date</key>
	<date>2014-01-05T19:08:09Z</date>
	<key>int</key>
	<integer>-5</integer>
	<key>k&amp;&lt;&gt;</key>
	<integer>2</integer>
	<key>list</key>
	<array>
		<integer>1</integer>
		<dict>
			<key>k</key>
			<string>v</string>
		</dict>
		<array/>
	</array>
	<key>none</key>
	<dict/>
	<key>real</key>
	<real>0.1</real>
	<key>text</key>
	<string>&lt;a&gt; &amp; "b" 'c'</string>
	<key>)"
        "\xC3\xA4"
        R"(</key>
	<integer>1</integer>
</dict>
)");
}

TEST(XmlPropertyList, BeginsWithDeclarationAndDocumentType)
{
    const auto xml = xmlFromPropertyList({});
    ASSERT_TRUE(xml);
    EXPECT_TRUE(xml->starts_with("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE plist PUBLIC "));
    EXPECT_TRUE(xml->ends_with(">\n<plist version=\"1.0\">\n<dict/>\n</plist>\n"));
}

TEST(XmlPropertyList, IsUnderstoodByAnotherReader)
{
    const auto xml = xmlFromPropertyList(
        { { "on", true }, { "text", "a\r\n<b>" }, { "count", std::numeric_limits<long long>::min() } });
    plist_t root = nullptr;
    plist_from_xml(xml->data(), static_cast<std::uint32_t>(xml->size()), &root);
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(plist_dict_get_size(root), 3U);
    std::uint64_t count = 0;
    plist_get_uint_val(plist_dict_get_item(root, "count"), &count);
    EXPECT_EQ(static_cast<long long>(count), std::numeric_limits<long long>::min());
    plist_free(root);
}

TEST(XmlPropertyList, BreaksLongDataIntoLines)
{
    EXPECT_EQ(bodyOf({ { "d", PropertyData(60, 0) } }),
        "<dict>\n\t<key>d</key>\n\t<data>\n\t" + std::string(68, 'A') + "\n\t" + std::string(12, 'A')
            + "\n\t</data>\n</dict>\n");
}

TEST(XmlPropertyList, DropsADatesFraction)
{
    const auto text = [](double seconds) {
        const auto body = bodyOf({ { "d", NSDate(seconds) } });
        const auto start = body.find("<date>");
        return start == body.npos ? body : body.substr(start + 6, 20);
    };
    EXPECT_EQ(text(0), "2001-01-01T00:00:00Z");
    EXPECT_EQ(text(0.999999), "2001-01-01T00:00:00Z");
    EXPECT_EQ(text(-1e-9), "2000-12-31T23:59:59Z");
    EXPECT_EQ(text(-978307200.5), "1969-12-31T23:59:59Z");
    EXPECT_EQ(text(2145916800), "2069-01-01T00:00:00Z");
    EXPECT_EQ(text(3127536000), "2100-02-09T08:00:00Z");
    EXPECT_EQ(text(63113904000), "4001-01-01T00:00:00Z");
    EXPECT_EQ(text(252423993599), "9999-12-31T23:59:59Z");
    EXPECT_EQ(text(-63145526400), "0000-01-01T00:00:00Z");
}

TEST(XmlPropertyList, CannotHoldEveryDate)
{
    for (const double seconds : { 252423993600.0, -63145526400.5, 1e300, -1e300,
             std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN() })
        EXPECT_FALSE(xmlFromPropertyList({ { "d", NSDate(seconds) } })) << seconds;
}

TEST(XmlPropertyList, CannotHoldEveryText)
{
    using namespace std::string_literals;
    for (const auto& text : { "\x01"s, "a\0b"s, "\x1F"s, "\xFF"s, "\xC3"s, "\xED\xA0\x80"s, "\xC0\x80"s,
             "\xEF\xBF\xBE"s, "\xEF\xBF\xBF"s, "\xF4\x90\x80\x80"s }) {
        EXPECT_FALSE(xmlFromPropertyList({ { "k", text } })) << text;
        EXPECT_FALSE(xmlFromPropertyList({ { text, "v" } })) << text;
        EXPECT_FALSE(xmlFromPropertyList({ { "k", PropertyArray { PropertyList { { "k", text } } } } }));
    }
}

TEST(XmlPropertyList, ReadsEachKindOfElement)
{
    EXPECT_EQ(parseInList("<true/>"), PropertyValue(true));
    EXPECT_EQ(parseInList("<false></false>"), PropertyValue(false));
    EXPECT_EQ(parseInList("<integer>1</integer>"), PropertyValue(1));
    EXPECT_EQ(parseInList("<real>1</real>"), PropertyValue(1.0));
    EXPECT_EQ(parseInList("<string>a &amp; &lt;b&gt; &#x41;&#66;</string>"), PropertyValue("a & <b> AB"));
    EXPECT_EQ(parseInList("<string><![CDATA[<raw>]]></string>"), PropertyValue("<raw>"));
    EXPECT_EQ(parseInList("<string/>"), PropertyValue(""));
    EXPECT_EQ(parseInList("<string> a\n b </string>"), PropertyValue(" a\n b "));
    EXPECT_EQ(parseInList("<date>2014-01-05T19:08:09Z</date>"), PropertyValue(NSDate(410641689)));
    EXPECT_EQ(parseInList("<data>\n\tAQ\n\tID\n</data>"), PropertyValue(PropertyData { 1, 2, 3 }));
    EXPECT_EQ(parseInList("<data/>"), PropertyValue(PropertyData {}));
    EXPECT_EQ(
        parseInList("<array><!-- note --><integer>1</integer></array>"), PropertyValue(PropertyArray { 1 }));
    EXPECT_EQ(parseInList("<dict/>"), PropertyValue(PropertyList {}));
}

TEST(XmlPropertyList, KeepsTheLastOfEqualKeys)
{
    EXPECT_EQ(parse("<dict><key>a</key><true/><key>a</key><integer>2</integer></dict>"),
        PropertyValue(PropertyList { { "a", 2 } }));
}

TEST(XmlPropertyList, NeedsNeitherDeclarationNorWrapper)
{
    const PropertyValue expected = PropertyList { { "a", true } };
    EXPECT_EQ(parsePropertyList("<dict><key>a</key><true/></dict>"), expected);
    EXPECT_EQ(parsePropertyList("\n\t <plist><dict><key>a</key><true/></dict></plist>  \n"), expected);
    EXPECT_EQ(parsePropertyList("\n<?xml version=\"1.0\"?><plist><dict><key>a</key><true/></dict></plist>"),
        expected);
    EXPECT_EQ(parsePropertyList("\xEF\xBB\xBF<dict><key>a</key><true/></dict>"), expected);
}

TEST(XmlPropertyList, ReadsIntegersOfEverySize)
{
    const auto read = [](const std::string& text) { return parseInList("<integer>" + text + "</integer>"); };
    EXPECT_EQ(read("-12"), PropertyValue(-12));
    EXPECT_EQ(read("+7"), PropertyValue(7));
    EXPECT_EQ(read(" 7"), PropertyValue(7));
    EXPECT_EQ(read("007"), PropertyValue(7));
    EXPECT_EQ(read("0x1F"), PropertyValue(31));
    EXPECT_EQ(read("-0xA"), PropertyValue(-10));
    EXPECT_EQ(read("9223372036854775807"), PropertyValue(std::numeric_limits<long long>::max()));
    EXPECT_EQ(read("-9223372036854775808"), PropertyValue(std::numeric_limits<long long>::min()));
    EXPECT_EQ(read("9223372036854775808"), PropertyValue(0x1p63));
    EXPECT_EQ(read("18446744073709551615"), PropertyValue(0x1p64));
}

TEST(XmlPropertyList, ReadsReals)
{
    const auto read = [](const std::string& text) { return parseInList("<real>" + text + "</real>"); };
    EXPECT_EQ(read("-1.5e-3"), PropertyValue(-0.0015));
    EXPECT_EQ(read(".5"), PropertyValue(0.5));
    EXPECT_EQ(read("1e999"), PropertyValue(std::numeric_limits<double>::infinity()));
    EXPECT_EQ(read("+infinity"), PropertyValue(std::numeric_limits<double>::infinity()));
    EXPECT_EQ(read("-INF"), PropertyValue(-std::numeric_limits<double>::infinity()));
    const auto notANumber = read("nan");
    ASSERT_TRUE(notANumber);
    EXPECT_TRUE(std::isnan(notANumber->doubleValue()));
}

TEST(XmlPropertyList, IsSpoiltByOneMalformedElement)
{
    for (const char* element : {
             "<integer></integer>",
             "<integer/>",
             "<integer>abc</integer>",
             "<integer>12x</integer>",
             "<integer>1.5</integer>",
             "<integer>--1</integer>",
             "<integer>18446744073709551616</integer>",
             "<integer>-9223372036854775809</integer>",
             "<integer>0x</integer>",
             "<integer>1 2</integer>",
             "<real></real>",
             "<real>abc</real>",
             "<real>1,5</real>",
             "<real>1e</real>",
             "<real>0x10</real>",
             "<real>1.5x</real>",
             "<real>1.2.3</real>",
             "<real>infinite</real>",
             "<date></date>",
             "<date>2014-01-05</date>",
             "<date>2014-01-05T19:08:09</date>",
             "<date>2014-01-05 19:08:09Z</date>",
             "<date>2014-01-05T19:08:09.5Z</date>",
             "<date>14-01-05T19:08:09Z</date>",
             "<date>2014-1-5T19:08:09Z</date>",
             "<date>2014-01-05T19:08:09z</date>",
             "<date> 2014-01-05T19:08:09Z</date>",
             "<date>2014-01-05T19:08:09Z </date>",
             "<date>2014-01-05T19:08:09+01:00</date>",
             "<date>2014-13-05T19:08:09Z</date>",
             "<date>2014-02-30T19:08:09Z</date>",
             "<date>2014-01-05T24:08:09Z</date>",
             "<date>2014-01-05T19:60:09Z</date>",
             "<date>2014-01-05T19:08:60Z</date>",
             "<date>-014-01-05T19:08:09Z</date>",
             "<data>A*B=</data>",
             "<true>x</true>",
             "<false><true/></false>",
             "<string><b/></string>",
             "<string>&unknown;</string>",
             "<string>a & b</string>",
             "<string>\x01</string>",
             "<string>\xFF</string>",
             "<string>\xC3</string>",
             "<unknown/>",
             "<key>k</key>",
             "",
             "<array><integer>x</integer></array>",
             "<array>text</array>",
             "<dict><true/></dict>",
             "<dict><key>k</key></dict>",
             "<dict><key>k</key><key>l</key></dict>",
             "<dict>text</dict>",
             "<dict><key><b/></key><true/></dict>",
             "<True/>",
             "<string>a</String>",
             "<true/><true/>",
         })
        EXPECT_FALSE(parseInList(element)) << element;
}

TEST(XmlPropertyList, IsSpoiltByWhatStandsAroundTheRoot)
{
    for (const char* file : { "x", "<", "<plist>", "<plist></plist>", "<plist/>", "<plist><dict/>",
             "<plist><dict/><dict/></plist>", "<dict/><dict/>", "<plist>x<dict/></plist>", "<dict/>x",
             "<plist><dict/></plist>x", "{ a = 1 }", "bplist", "bplist00", "<?xml version=\"1.0\"?>",
             "<!-- -->", "<html><dict/></html>" })
        EXPECT_FALSE(parsePropertyList(file)) << file;
}

TEST(XmlPropertyList, OfAnEmptyOrBlankFileIsAnEmptyDictionary)
{
    for (const char* file : { "", " ", "\n", " \t\r\n\n" })
        EXPECT_EQ(parsePropertyList(file), PropertyValue(PropertyList {})) << file;
}

TEST(XmlPropertyList, NestsOnlySoDeep)
{
    const auto arrays = [](int depth) { return parse(nested("<array>", "</array>", depth)); };
    EXPECT_TRUE(arrays(deepestNesting));
    EXPECT_FALSE(arrays(deepestNesting + 1));
    EXPECT_FALSE(arrays(1'000'000));
    EXPECT_FALSE(parse(nested("<dict><key>k</key>", "</dict>", 1'000'000)));
    EXPECT_FALSE(parse(nested("<unknown>", "</unknown>", 1'000'000)));

    PropertyValue value = PropertyArray {};
    for (int depth = 2; depth < deepestNesting; ++depth)
        value = PropertyArray { value };
    const auto xml = xmlFromPropertyList({ { "k", value } });
    ASSERT_TRUE(xml);
    EXPECT_EQ(parsePropertyList(*xml), PropertyValue(PropertyList { { "k", value } }));
    EXPECT_FALSE(xmlFromPropertyList({ { "k", PropertyArray { value } } }));
}

TEST(XmlPropertyList, DoesNotGrowByItsOwnEntities)
{
    std::string types = "<!DOCTYPE plist [<!ENTITY a0 \"0123456789\">";
    for (int level = 1; level < 30; ++level) {
        const auto inner = "&a" + std::to_string(level - 1) + ";";
        types += "<!ENTITY a" + std::to_string(level) + " \"" + inner + inner + "\">";
    }
    EXPECT_FALSE(parsePropertyList(types + "]><plist><string>&a29;</string></plist>"));
}

}
