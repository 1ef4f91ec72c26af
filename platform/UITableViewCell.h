#pragma once

#include "UIImageView.h"
#include "UILabel.h"

namespace platform {

enum class UITableViewCellStyle { Default = 0, Value1 = 1 };
enum class UITableViewCellSelectionStyle { None = 0, Default = 3 };
enum class UITableViewCellAccessory { None = 0, DisclosureIndicator = 1, Checkmark = 3 };

/// A row of a table: an icon, a text, a value and an accessory, or whatever a subclass puts into its content
/// view.
class UITableViewCell : public UIView {
public:
    static constexpr CGFloat defaultHeight = 44;

    UITableViewCell(UITableViewCellStyle, std::string reuseIdentifier);

    /// Fills the cell and follows its size.
    UIView& contentView() { return *_contentView; }
    const UIView& contentView() const { return *_contentView; }
    UILabel& textLabel() { return *_textLabel; }
    const UILabel& textLabel() const { return *_textLabel; }
    UILabel& detailTextLabel() { return *_detailTextLabel; }
    UIImageView& imageView() { return *_imageView; }
    UITableViewCellAccessory accessoryType() const { return _accessory; }
    void setAccessoryType(UITableViewCellAccessory);
    /// A control at the row's end, in place of an accessory; null for none.
    const Ref<UIView>& accessoryView() const { return _accessoryView; }
    void setAccessoryView(Ref<UIView>);
    /// On at first. A row that cannot be selected takes no taps.
    bool selectable() const { return _selectable; }
    void setSelectable(bool selectable) { _selectable = selectable; }
    /// Whether a touched row turns grey.
    void setSelectionStyle(UITableViewCellSelectionStyle style) { _selectionStyle = style; }
    bool isHighlighted() const { return _highlight != nullptr; }
    void setHighlighted(bool);

    void layoutSubviews() override;

    // Internal: for the table.
    /// The hairline below the row, beginning where the text does.
    void _setSeparatorShown(bool);

protected:
    /// What icon and accessory leave of the row, from where reading begins: from the left, or right to left
    /// from the right.
    struct Room {
        CGFloat start = 0;
        CGFloat end = 0;
        CGFloat width() const { return end > start ? end - start : 0; }
    };
    /// Places icon and accessory.
    Room layoutEnds();
    /// Over the full height of the row, from `start` in reading direction.
    void place(UIView&, CGFloat start, CGFloat width);
    void placeCentered(UIView&, CGFloat start, CGSize);
    /// Puts a view of the row's own behind whatever a subclass added, or takes it out when it shows nothing.
    void showInContent(const Ref<UIView>&, bool shown);
    const Ref<UILabel>& textLabelRef() const { return _textLabel; }

private:
    CGRect mirrored(CGRect) const;

    UITableViewCellStyle _style;
    std::string _reuseIdentifier;
    UITableViewCellAccessory _accessory = UITableViewCellAccessory::None;
    UITableViewCellSelectionStyle _selectionStyle = UITableViewCellSelectionStyle::Default;
    bool _selectable = true;
    Ref<UIView> _contentView;
    Ref<UIImageView> _imageView;
    Ref<UILabel> _textLabel, _detailTextLabel;
    Ref<UIView> _accessoryView;
    Ref<UILabel> _accessoryGlyph;
    Ref<UIView> _highlight;
    Ref<UIView> _separator;
};

}
