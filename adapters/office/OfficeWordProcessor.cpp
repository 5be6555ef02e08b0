#include "adapters/office/OfficeWordProcessor.h"

#include "adapters/office/Docx.h"
#include "adapters/office/TargetFolder.h"
#include "basic/Error.h"
#include "os/Process.h"
#include "os/WordProcessor.h"

#include <cstdio>
#include <deque>
#include <memory>
#include <utility>
#include <vector>

namespace kvx::adapters::office {

namespace {

class OfficeDocument final : public os::WordDocument {
public:
    explicit OfficeDocument(std::string folder) : folder_(std::move(folder)) {}

    void SetMirrored(bool mirrored) override { Assign(table_.mirrored, mirrored); }
    void SetSectionStart(std::int32_t start) override { Assign(table_.sectionStart, start); }
    // The window of a wide table was made for a wide page: that is what the file can carry of it.
    void SetWindowFlag(bool flag) override { Assign(table_.landscape, flag); }

    void AddTable(std::int32_t rows, std::int32_t columns) override
    {
        const PrintedTable page = std::exchange(table_, PrintedTable{});
        table_.mirrored = page.mirrored;
        table_.sectionStart = page.sectionStart;
        table_.landscape = page.landscape;
        table_.pageNumber = page.pageNumber;
        table_.lines.resize(static_cast<std::size_t>(std::max(rows, 0)));
        table_.columns = std::max(columns, 0);
        texts_.clear();
        selected_ = Selected::Nothing;
        Changed();
    }
    void SelectTable() override { selected_ = table_.columns > 0 ? Selected::Table : Selected::Nothing; }
    void SelectRow(std::int32_t row) override
    {
        selected_ = row >= 1 && row <= table_.Rows() ? Selected::Row : Selected::Nothing;
        selectedRow_ = row;
    }
    void MoveToStart() override { selected_ = Selected::Nothing; }

    // A text with more lines than there are rows from the selection on makes rows: a paste loses nothing.
    void PasteText(std::string_view text) override
    {
        if (selected_ == Selected::Nothing) return;
        std::string_view rest = texts_.emplace_back(text);
        std::size_t row = selected_ == Selected::Row ? static_cast<std::size_t>(selectedRow_) - 1 : 0;
        while (!rest.empty()) {
            const std::size_t end = rest.find('\n');
            std::string_view line = rest.substr(0, end);
            rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
            if (line.ends_with('\r')) line.remove_suffix(1);
            if (row == table_.lines.size()) table_.lines.emplace_back();
            table_.lines[row++] = line;
        }
        Changed();
    }
    void SetBold(bool bold) override
    {
        ForSelectedFormats([bold](CellFormat& format) { format.bold = bold; });
    }
    void SetShading(std::uint32_t rgb) override
    {
        ForSelectedFormats([rgb](CellFormat& format) { format.shading = rgb; });
    }
    void SetFont(std::string_view name, std::int32_t points) override
    {
        ForSelectedFormats([name, points](CellFormat& format) {
            format.fontName = name;
            format.fontPoints = points;
        });
    }
    void SetRowSetting(std::int32_t setting) override { Assign(table_.rowSetting, setting); }

    void SetHeadingRow(std::int32_t row, bool heading) override
    {
        if (row < 1 || row > table_.Rows() || table_.headingRows.contains(row) == heading) return;
        if (heading) {
            table_.headingRows.insert(row);
        } else {
            table_.headingRows.erase(row);
        }
        Changed();
    }
    void AddFooterPageNumber(std::int32_t alignment, bool onFirstPage) override
    {
        Assign(table_.pageNumber, std::optional(PageNumber{alignment, onFirstPage}));
    }

    /// Writes the file; what changes from now on is written by Open.
    void Show() { Write(); }

    /// Gives the file to the user's program; what changes from now on is written at once.
    void Open()
    {
        if (stale_) Write();
        isOpen_ = true;
        try {
            os::CurrentShell().Open(path_);
        } catch (const basic::Error& error) {
            basic::Raise(error.Number,
                         "The printed table is in " + path_ + ", but cannot be opened: " + error.Description);
        }
    }

private:
    enum class Selected { Nothing, Table, Row };

    template <class T>
    void Assign(T& property, T value)
    {
        if (property == value) return;
        property = std::move(value);
        Changed();
    }

    template <class Set>
    void ForSelectedFormats(Set set)
    {
        if (selected_ == Selected::Table) {
            set(table_.format);
            for (auto& [row, format] : table_.rowFormats)
                set(format);
        } else if (selected_ == Selected::Row) {
            set(table_.rowFormats.try_emplace(selectedRow_, table_.format).first->second);
        } else {
            return;
        }
        Changed();
    }

    void Changed()
    {
        stale_ = true;
        if (isOpen_) Write();
    }

    void Write()
    {
        const bool isNew = path_.empty();
        if (isNew) path_ = ClaimDocumentName(folder_);
        try {
            WriteZip(path_, DocxParts(table_));
        } catch (const basic::Error&) {
            if (isNew) {
                std::remove(path_.c_str());  // nobody wants the empty file
                path_.clear();
            }
            throw;
        }
        stale_ = false;
    }

    std::string folder_;
    std::string path_;  // empty: not written yet
    PrintedTable table_;
    std::deque<std::string> texts_;  // what the table's lines are views of
    Selected selected_ = Selected::Nothing;
    std::int32_t selectedRow_ = 0;
    bool stale_ = true;    // the file is not what the document is
    bool isOpen_ = false;  // the user's program has the file
};

class OfficeApplication final : public os::WordApplication {
public:
    OfficeApplication(std::string folder, Defer defer) : folder_(std::move(folder)), defer_(std::move(defer)) {}

    // The user's program places its own windows.
    void SetWindowState(std::int32_t) override {}

    std::shared_ptr<os::WordDocument> AddDocument() override
    {
        return hidden_.emplace_back(std::make_shared<OfficeDocument>(folder_.empty() ? DefaultFolder() : folder_));
    }

    void SetVisible(bool visible) override
    {
        if (!visible) return;
        // Taken out first: a document that cannot be written must not stop the prints after it.
        for (const auto& document : std::exchange(hidden_, {})) {
            document->Show();
            if (defer_) {
                defer_([document] { document->Open(); });
            } else {
                document->Open();
            }
        }
    }

private:
    std::string folder_;
    Defer defer_;
    std::vector<std::shared_ptr<OfficeDocument>> hidden_;
};

}  // namespace

void RegisterOfficeWordProcessor(std::string folder, Defer defer)
{
    os::RegisterWordProcessor([folder = std::move(folder), defer = std::move(defer)] {
        return std::make_shared<OfficeApplication>(folder, defer);
    });
}

}  // namespace kvx::adapters::office
