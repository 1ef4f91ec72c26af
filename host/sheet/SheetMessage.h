#pragma once

#include "SheetPicture.h"

#include <optional>

namespace host {

/// What a process that renders tells the one that takes the pictures.
struct SheetMessage {
    enum class Kind : quint8 { JobBegins, Picture, JobIsDone, Failure, End };

    Kind kind = Kind::End;
    SheetPicture picture {}; ///< Of `Picture`; of `JobBegins` its job alone.
    std::string failure {}; ///< One sentence.
};

QByteArray bytesFromMessage(const SheetMessage&);

/// Takes the first message off what was heard; nothing as long as it is not whole.
std::optional<SheetMessage> takeMessage(QByteArray& heard);

}
