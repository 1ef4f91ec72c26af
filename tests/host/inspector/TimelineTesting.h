#pragma once

#include "host/inspector/TimelineModel.h"
#include "platform/Journal.h"

#include <QStringList>

#include <string>

/// Something happens that the timeline has an entry for.
inline void post(const std::string& name)
{
    platform::Journal::shared().record({ .kind = platform::JournalEntry::Kind::Notification, .name = name });
}

/// Names of the rows, or of another column.
inline QStringList column(const QAbstractItemModel& model, int column = host::TimelineModel::NameColumn)
{
    QStringList texts;
    for (int row = 0; row < model.rowCount(); ++row)
        texts += model.index(row, column).data().toString();
    return texts;
}
