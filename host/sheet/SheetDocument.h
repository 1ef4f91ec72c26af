#pragma once

#include "SheetPlan.h"

#include <functional>
#include <map>
#include <optional>
#include <QByteArray>
#include <string>
#include <vector>

class QIODevice;

namespace host {

/// A sheet's content: which picture stands where. Written as one HTML file with the pictures in it, and read
/// again from one to compare.
struct SheetDocument {
    struct Entry {
        std::string state;
        int page = 1;
        std::string title; ///< The page's.
        std::string phone;
        int scale = 2;
        std::string locale;
        QByteArray id;
        int width = 0;
        int height = 0;

        std::string key() const; ///< Where it stands.
    };

    std::string name; ///< The bundle's.
    std::vector<Entry> entries;
    std::map<QByteArray, QByteArray> pictures; ///< PNGs in base64, by their pixels.

    /// What changed since an earlier sheet.
    struct Change {
        Entry before, after;
        QByteArray difference; ///< Where pixels differ.
    };
    struct Comparison {
        std::size_t same = 0;
        std::vector<Change> changed;
        std::vector<Entry> added, gone;

        std::string summary() const;
    };
    std::optional<Comparison> comparison;

    /// As HTML; the same content gives the same bytes. False when the device, which says why, can't take it.
    [[nodiscard]] bool writeTo(QIODevice&) const;
    /// Throws std::runtime_error with one sentence when the file cannot be read, or is no whole sheet.
    static SheetDocument read(const std::string& file);
    /// Compares with the earlier one, whose pictures are taken over as far as they are shown. `tick` is
    /// called between the pictures that are compared, and may throw to have it given up. Throws
    /// std::runtime_error with one sentence when a picture can't be read.
    void compareWith(
        const SheetDocument& earlier,
        const std::function<void(std::size_t done, std::size_t all)>& tick = [](std::size_t, std::size_t) {});
};

}
