#pragma once

#include "host/inspector/FileModel.h"
#include "host/inspector/FilePage.h"
#include "platform/Geometry.h"
#include "platform/PropertyValue.h"
#include "WindowTest.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QModelIndex>
#include <QPushButton>
#include <QStringList>
#include <QTableView>

#include <string>
#include <vector>

/// The inspector's page of the preference file, of a phone whose file has a text, a boolean and a number.
class InspectorFilePage : public WindowTest {
protected:
    InspectorFilePage();
    ~InspectorFilePage() override;

    /// As another process does it.
    void writePreferences(const std::string& entries);
    platform::PropertyList stored() const;

    QModelIndex cell(const QString& key, host::FileModel::Column) const;
    QString value(const QString& key) const;
    QString change(const QString& key) const;
    bool edit(const QString& key, const QString& text);
    /// Opens the line to type the value into, as its keys do.
    QLineEdit* editByKeys(const QString& key);
    /// What somebody reads in the value's tool tip, as far as it goes.
    QString shownTip(const QString& key) const;
    /// Of the whole table, as "key type value".
    QStringList rows() const;

    template <typename Widget> Widget* child(const char* name) const
    {
        return page->findChild<Widget*>(QString::fromLatin1(name));
    }
    void press(const char* button) { child<QPushButton>(button)->click(); }
    QString message() const;
    QString state() const { return child<QWidget>("state")->accessibleName(); }
    void add(const QString& key, const QString& type, const QString& text);
    void tap(platform::CGPoint);

    host::FilePage* page = nullptr;
    QTableView* table = nullptr;
    std::vector<std::string> posted;

    static constexpr platform::CGPoint enabledSwitch { 334, 121 };
    static constexpr platform::CGPoint vekoraNow { 187, 209 };
    const std::vector<std::string> once { "net.morvane.vekora/preferences" };

private:
    int _listener = 0;
};
