#include "host/access/ElementIndex.h"

#include "AccessFixture.h"
#include "platform/UIView.h"

using namespace platform;
using host::Element;
using host::ElementIndex;

namespace {

class ElementIndexes : public AccessTest {
protected:
    /// Whether it knows each of them by the element around it.
    static void expectPlaces(const ElementIndex& index, const Element& around)
    {
        for (const auto& child : around.children) {
            const auto* const place = index.find(child.id);
            ASSERT_TRUE(place) << child.name;
            EXPECT_EQ(place->element, &child) << child.name;
            EXPECT_EQ(place->parent, &around) << child.name;
            expectPlaces(index, child);
        }
    }
};

}

TEST_F(ElementIndexes, KnowWhereEachElementIs)
{
    openScreen(options());
    openColorPage(); // Its field and its bars have several elements of one view.
    const auto tree = root();
    const ElementIndex index(tree);
    ASSERT_TRUE(index.find(tree.id));
    EXPECT_EQ(index.find(tree.id)->element, &tree);
    EXPECT_EQ(index.find(tree.id)->parent, nullptr);
    expectPlaces(index, tree);
}

TEST_F(ElementIndexes, KnowNothingOfOtherKindsAndOfWhatHasGone)
{
    auto view = std::make_shared<UIView>(CGRect { 0, 0, 1, 1 });
    Element tree;
    tree.id = { WeakObject(view.get()), host::ElementRole::Field, 0 };
    const ElementIndex index(tree);
    EXPECT_TRUE(index.find(tree.id));
    EXPECT_FALSE(index.find({ tree.id.view, host::ElementRole::Axis, 0 }));
    EXPECT_FALSE(index.find({ tree.id.view, host::ElementRole::Field, 1 }));
    view.reset();
    EXPECT_FALSE(index.find(tree.id));
}
