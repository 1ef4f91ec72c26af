#pragma once

#include "Apart.h"
#include "BundleContents.h"
#include "platform/PSListController.h"

#include <functional>

namespace host {

/// The rows of a page that is open, each beside the row of a resource that it was made from.
class PageRows {
public:
    /// Both must live as long.
    PageRows(const BundleContents&, platform::PSListController&);

    std::size_t size() const { return _rows.size(); }
    const platform::Ref<platform::PSSpecifier>& specifier(std::size_t index) const
    {
        return _rows[index].specifier;
    }
    /// Null for a row that the page made itself.
    const platform::PropertyList* item(std::size_t index) const;
    /// The row's resource, or what is given for a row without one.
    std::string file(std::size_t index, const std::string& otherwise) const;
    std::string place(std::size_t index) const;

    /// Asked before something that may go wrong; false passes it over.
    using Step = std::function<bool(const std::string& name, std::size_t index, const std::string& doing)>;

    /// Tells of each row of a resource what `RowFacts` holds, and whether its cell can be made.
    void tell(const RecordWriter&, const Step&) const;

private:
    struct Row {
        platform::Ref<platform::PSSpecifier> specifier;
        std::optional<std::size_t> index; ///< In the resource.
    };

    void findResource();
    void tellOfSelectors(const RecordWriter&, const Row&) const;
    void tellOfCode(const RecordWriter&, const Row&) const;
    void tellOfCell(const RecordWriter&, std::size_t index, const Step&) const;
    void tellOfStoring(const RecordWriter&, std::size_t index, const Step&) const;

    const BundleContents& _contents;
    platform::PSListController& _page;
    const RowResource* _resource = nullptr; ///< The one that the page's rows come from.
    std::string _number; ///< Its place among the bundle's.
    std::vector<Row> _rows;
};

}
