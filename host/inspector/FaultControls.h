#pragma once

#include <QWidget>

#include <functional>
#include <string>

class QLabel;

namespace host {

/// A button for each fault on demand, and a line that says which are in force.
class FaultControls final : public QWidget {
public:
    /// Is told one sentence when a fault can't be made, and nothing when it is made.
    using Teller = std::function<void(const std::string& sentence)>;

    FaultControls(Teller, QWidget* parent);
    ~FaultControls() override;

private:
    void show();

    Teller _tell;
    QLabel* _state;
    int _listener = 0;
};

}
