#pragma once

#include "host/ViewFacts.h"

#include <QWidget>

#include <array>

class QLabel;

namespace host {

/// All that can be told of one view, with names.
class ViewDetails final : public QWidget {
public:
    explicit ViewDetails(QWidget* parent);

    /// Nothing for no view.
    void show(const std::optional<ViewFacts>&);

private:
    static constexpr std::size_t count = 15;

    std::array<QLabel*, count> _values {};
};

}
