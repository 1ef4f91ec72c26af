#include "SheetMessage.h"

#include <QDataStream>
#include <QIODevice>

namespace host {

QByteArray bytesFromMessage(const SheetMessage& message)
{
    const auto& picture = message.picture;
    QByteArray body;
    QDataStream stream(&body, QIODevice::WriteOnly);
    stream << static_cast<quint8>(message.kind) << static_cast<quint32>(picture.job)
           << static_cast<quint32>(picture.page) << QByteArray::fromStdString(picture.title) << picture.id
           << static_cast<qint32>(picture.width) << static_cast<qint32>(picture.height) << picture.png
           << QByteArray::fromStdString(message.failure);
    QByteArray bytes;
    QDataStream outer(&bytes, QIODevice::WriteOnly);
    outer << body;
    return bytes;
}

std::optional<SheetMessage> takeMessage(QByteArray& heard)
{
    QDataStream outer(heard);
    outer.startTransaction();
    QByteArray body;
    outer >> body;
    if (!outer.commitTransaction())
        return std::nullopt;
    heard.remove(0, static_cast<qsizetype>(sizeof(quint32)) + body.size());

    quint8 kind = 0;
    quint32 job = 0;
    quint32 page = 0;
    QByteArray title;
    qint32 width = 0;
    qint32 height = 0;
    QByteArray failure;
    SheetMessage message;
    auto& picture = message.picture;
    QDataStream stream(body);
    stream >> kind >> job >> page >> title >> picture.id >> width >> height >> picture.png >> failure;
    message.kind = static_cast<SheetMessage::Kind>(kind);
    picture.job = job;
    picture.page = page;
    picture.title = title.toStdString();
    picture.width = width;
    picture.height = height;
    message.failure = failure.toStdString();
    return message;
}

}
