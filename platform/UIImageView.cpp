#include "UIImageView.h"
#include "UIViewImpl.h"

namespace platform {

struct UIImageView::ImageViewImpl : UIView::Impl {
    using Impl::Impl;

    std::optional<UIImage> image;
};

UIImageView::UIImageView()
    : UIImageView(CGRect {})
{
}

UIImageView::UIImageView(CGRect frame)
    : UIView(frame, std::make_unique<ImageViewImpl>(*this))
{
    setUserInteractionEnabled(false);
    impl().contentsAreSet = true;
}

const std::optional<UIImage>& UIImageView::image() const
{
    return static_cast<const ImageViewImpl&>(impl()).image;
}

void UIImageView::setImage(std::optional<UIImage> image)
{
    auto& own = static_cast<ImageViewImpl&>(impl());
    own.image = std::move(image);
    own.contents = own.image && own.image->bitmap() ? contentsFromBitmap(own.image->bitmap()) : nullptr;
    own.damage();
}

}
