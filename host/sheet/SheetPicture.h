#pragma once

#include <cstddef>
#include <QByteArray>
#include <string>

namespace host {

/// One picture of a job, as a worker hands it over.
struct SheetPicture {
    std::size_t job = 0; ///< Of `SheetPlan::jobs`.
    std::size_t page = 1; ///< From 1, of the job's state.
    std::string title {}; ///< The page's.
    QByteArray id {}; ///< Of its pixels: the same for the same.
    int width = 0; ///< Pixels.
    int height = 0;
    QByteArray png {}; ///< Empty when the worker has sent this picture before.
};

}
