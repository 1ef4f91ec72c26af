#pragma once

#include <QLayout>

#include <memory>
#include <vector>

namespace host {

/// Items beside one another, in as many lines as their widths take. What wants to expand shares the room that
/// is left in its line.
class WrappingLayout final : public QLayout {
public:
    /// The owner's own layout, or one to be put into another.
    explicit WrappingLayout(QWidget* owner = nullptr);
    ~WrappingLayout() override;

    /// In its line, what follows goes to the end.
    void addStretch();

    void addItem(QLayoutItem*) override;
    int count() const override;
    QLayoutItem* itemAt(int) const override;
    QLayoutItem* takeAt(int) override;
    Qt::Orientations expandingDirections() const override { return {}; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override; ///< In one line.
    QSize minimumSize() const override; ///< The widest item's width.
    void setGeometry(const QRect&) override;

private:
    /// Items that share a line, as far as they are shown.
    struct Line {
        std::vector<QLayoutItem*> items;
        int width = 0; ///< With the gaps between them.
        int height = 0;
    };

    std::vector<Line> linesFor(int width) const;
    void place(const Line&, QPoint, int width) const;
    int heightOf(const std::vector<Line>&) const;

    std::vector<std::unique_ptr<QLayoutItem>> _items;
};

}
