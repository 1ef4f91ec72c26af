#include "Pictures.h"

#include "platform/Device.h"
#include "platform/PSListController.h"

#include <QImage>
#include <QString>

#include <algorithm>
#include <cctype>
#include <stdexcept>

namespace host {

using namespace platform;

namespace {

constexpr int deepest = 8; // Pages below one another; a page may lead back to itself.
constexpr CGFloat longest = 4000; // Points of one picture.

std::string fileName(std::size_t number, std::string title)
{
    std::replace_if(
        title.begin(), title.end(), [](unsigned char c) { return !std::isalnum(c); }, '-');
    auto digits = std::to_string(number);
    return (digits.size() < 2 ? "0" + digits : digits) + "-" + (title.empty() ? "page" : title) + ".png";
}

class Walk {
public:
    using Visitor = std::function<void(std::size_t number, const std::string& title)>;

    Walk(Phone& phone, const Visitor& visitor)
        : _phone(phone)
        , _visitor(visitor)
        , _size(Device::current().screenSize)
    {
    }

    void visit(int depth)
    {
        showWhole();
        auto* const page = top();
        if (!page || depth >= deepest)
            return;
        auto& table = page->table();
        for (long section = 0; section < page->numberOfSectionsInTableView(table); ++section) {
            for (long row = 0; row < page->tableViewNumberOfRowsInSection(table, section); ++row)
                follow({ section, row }, depth);
        }
    }

private:
    PSListController* top() const
    {
        return dynamic_cast<PSListController*>(_phone.navigation().topViewController());
    }

    // Only what leads to a page: a tap on a button or a switch would change what the pictures show.
    void follow(NSIndexPath path, int depth)
    {
        auto* const page = top();
        const auto* const specifier = page ? page->specifierAtIndexPath(path) : nullptr;
        if (!specifier
            || (specifier->cellType() != PSCellType::Link && specifier->cellType() != PSCellType::LinkList))
            return;
        auto& table = page->table();
        table.scrollToRowAtIndexPath(path);
        _phone.settle();
        const auto row = table.convertRectToView(table.rectForRowAtIndexPath(path), nullptr);
        const CGPoint middle { row.midX(), row.midY() };
        const auto pages = _phone.navigation().viewControllers().size();
        _phone.window().touchBegan(middle);
        _phone.window().touchEnded(middle);
        _phone.settle();
        if (_phone.navigation().viewControllers().size() <= pages)
            return;
        visit(depth + 1);
        _phone.navigation().popViewController();
        _phone.settle();
    }

    void showWhole()
    {
        _phone.settle();
        const auto scale = static_cast<int>(Device::current().scale);
        if (auto* const page = top()) {
            const auto overhang = std::min(page->table().maximumOffset(), longest);
            page->table().setContentOffset({});
            _phone.setScreen({ _size.width, _size.height + overhang }, scale);
            _phone.settle();
        }
        _visitor(++_number, titleOfTop());
        _phone.setScreen(_size, scale);
        _phone.settle();
    }

    std::string titleOfTop() const
    {
        const auto* const page = _phone.navigation().topViewController();
        return page ? page->title() : std::string();
    }

    Phone& _phone;
    const Visitor& _visitor;
    std::size_t _number = 0;
    CGSize _size;
};

}

bool writePicture(const UIWindow& window, const std::filesystem::path& file)
{
    const auto& picture = window.picture();
    const QImage image(reinterpret_cast<const uchar*>(picture.pixels.get()), picture.width, picture.height,
        picture.width * 4, QImage::Format_ARGB32_Premultiplied);
    return image.convertToFormat(QImage::Format_RGB32).save(QString::fromStdString(file.string()), "PNG");
}

void visitEveryPage(
    Phone& phone, const std::function<void(std::size_t number, const std::string& title)>& visitor)
{
    Walk(phone, visitor).visit(1);
}

std::vector<std::filesystem::path> writePicturesOfEveryPage(Phone& phone, const std::filesystem::path& folder)
{
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error)
        throw std::runtime_error(
            "The folder " + folder.string() + " can't be made: " + error.message() + ".");
    std::vector<std::filesystem::path> files;
    visitEveryPage(phone, [&](std::size_t number, const std::string& title) {
        const auto file = folder / fileName(number, title);
        if (!writePicture(phone.window(), file))
            throw std::runtime_error("The picture " + file.string() + " can't be written.");
        files.push_back(file);
    });
    return files;
}

}
