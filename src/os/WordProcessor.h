#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>

// The word processor as a print drives it, step by step. Raw flag values are those of the application that the prints
// were made for; an adapter turns them into what its own documents know.
namespace kvx::os {

/// A document that is being filled. There is one selection; a new document begins with the empty text selected.
class WordDocument {
public:
    virtual ~WordDocument() = default;

    virtual void SetMirroredFlag(bool mirrored) = 0;         ///< of the page set-up
    virtual void SetSectionStart(std::int32_t value) = 0;    ///< of the page set-up; 2 = new page
    virtual void SetWindowFlag(std::int32_t flag) = 0;       ///< of the document's window; nonzero = landscape
    virtual void AddTable(std::int32_t rows, std::int32_t columns) = 0;  ///< at the selection; the first is table 1
    virtual void SelectTable() = 0;
    /// Text with tabs between cells and line ends between rows fills the selected table's cells.
    virtual void Paste(std::string_view clipboardText) = 0;
    virtual void SelectRow(std::int32_t row) = 0;  ///< of table 1, counted from 1; a row that is not there selects nothing
    virtual void SetBold(bool bold) = 0;           ///< of the selection
    virtual void SetBackColor(std::uint32_t rgb) = 0;                                 ///< of the selection, 0xRRGGBB
    virtual void SetFont(std::string_view name, std::int32_t sizePoints) = 0;         ///< of the selection
    virtual void SetRowSetting(std::int32_t value) = 0;  ///< of table 1; 1 = rows centred between the margins
    virtual void MoveToStart() = 0;                      ///< selects nothing, at the beginning
    virtual void SetHeadingRow(std::int32_t row, bool heading) = 0;  ///< of table 1: repeats on every page
    /// In the footer of the first section. @param alignment 0 left, 1 centred, 2 right
    virtual void AddPageNumber(std::int32_t alignment, bool onFirstPage) = 0;
};

/// The running application.
class WordApplication {
public:
    virtual ~WordApplication() = default;
    /// "Application" while it runs; anything else makes the next print start a new one.
    virtual std::string_view TypeName() const = 0;
    virtual void SetWindowState(std::int32_t state) = 0;  ///< 2 = minimised
    virtual void SetVisible(bool visible) = 0;            ///< true leaves the document open for the user
    virtual std::shared_ptr<WordDocument> AddDocument() = 0;
};

/// Adapters register what starts the application. An empty factory takes it away.
void RegisterWordProcessor(std::function<std::shared_ptr<WordApplication>()> factory);

/// Starts the application. @throws basic::Error 429: there is none, or it could not be started
std::shared_ptr<WordApplication> CreateWordApplication();

}  // namespace kvx::os
