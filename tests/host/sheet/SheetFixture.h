#pragma once

#include "host/sheet/SheetDocument.h"
#include "tests/host/Conversation.h"

#include <gtest/gtest.h>
#include <QFile>
#include <QRegularExpression>

#include <set>

/// Sheets in a folder of their own, of one small phone in two languages.
class SheetFixture : public testing::Test {
protected:
    QString path(const char* name) const { return QString::fromStdString((_folder.path() / name).string()); }

    /// Of the project's own pane unless the words say otherwise.
    HostRun render(const char* name, const QStringList& more = {}, const QStringList& environment = {}) const
    {
        return runHost(QStringList { "sheet", path(name), "--phones", "320x480", "--scales", "1", "--locales",
                           "en_US,ar_EG" }
                + more,
            {}, environment);
    }

    host::SheetDocument sheet(const char* name) const
    {
        return host::SheetDocument::read(path(name).toStdString());
    }
    QByteArray bytesOf(const char* name) const
    {
        return QByteArray::fromStdString(readTestFile(path(name).toStdString()));
    }
    void write(const char* name, const QByteArray& bytes) const
    {
        writeTestFile(path(name).toStdString(), bytes.toStdString());
    }
    void write(const char* name, const host::SheetDocument& sheet) const
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_TRUE(sheet.writeTo(file));
    }

    /// Names in the folder.
    std::set<std::string> files() const
    {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(_folder.path()))
            names.insert(entry.path().filename().string());
        return names;
    }

    /// The whole text, as this regular expression.
    static void expectText(const QString& text, const QString& expression)
    {
        const QRegularExpression matching(QRegularExpression::anchoredPattern(expression));
        EXPECT_TRUE(matching.isValid()) << matching.errorString().toStdString();
        EXPECT_TRUE(matching.match(text).hasMatch())
            << text.toStdString() << "\nis not " << expression.toStdString();
    }
    /// One line that matches, and status 2.
    static void expectRefusal(const HostRun& run, const QString& sentence)
    {
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.output, "");
        expectText(run.errors, sentence + "\n");
    }

    TemporaryFolder _folder;
};
