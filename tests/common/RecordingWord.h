#pragma once

#include "basic/Error.h"
#include "os/WordProcessor.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kvx::test {

/// Word processors that note what they are asked, in order. Registered while it lives.
class RecordingWord {
public:
    RecordingWord()
    {
        os::RegisterWordProcessor([this]() -> std::shared_ptr<os::WordApplication> {
            ++started;
            if (fails) basic::Raise(basic::kErrCannotCreateObject);
            if (isMissing) return nullptr;
            return std::make_shared<Application>(*this);
        });
    }
    ~RecordingWord() { os::RegisterWordProcessor({}); }
    RecordingWord(const RecordingWord&) = delete;
    RecordingWord& operator=(const RecordingWord&) = delete;

    std::vector<std::string> calls;
    int started = 0;
    bool fails = false;      ///< starting one raises an error
    bool isMissing = false;  ///< none is installed
    bool isGone = false;     ///< the running ones were closed by the user

    /// The calls since the last time.
    std::vector<std::string> TakeCalls() { return std::exchange(calls, {}); }

private:
    static std::string Flag(bool flag) { return flag ? "true" : "false"; }

    class Document final : public os::WordDocument {
    public:
        explicit Document(RecordingWord& word) : word_(word) {}
        void SetMirrored(bool mirrored) override { Note("SetMirrored " + Flag(mirrored)); }
        void SetSectionStart(std::int32_t start) override { Note("SetSectionStart " + std::to_string(start)); }
        void SetWindowFlag(bool flag) override { Note("SetWindowFlag " + Flag(flag)); }
        void AddTable(std::int32_t rows, std::int32_t columns) override
        {
            Note("AddTable " + std::to_string(rows) + " x " + std::to_string(columns));
        }
        void SelectTable() override { Note("SelectTable"); }
        void SelectRow(std::int32_t row) override { Note("SelectRow " + std::to_string(row)); }
        void PasteText(std::string_view text) override { Note("PasteText " + std::string(text)); }
        void SetBold(bool bold) override { Note("SetBold " + Flag(bold)); }
        void SetShading(std::uint32_t rgb) override
        {
            Note("SetShading " + std::to_string(rgb >> 16U) + " " + std::to_string((rgb >> 8U) & 0xFFU) + " " +
                 std::to_string(rgb & 0xFFU));
        }
        void SetFont(std::string_view name, std::int32_t points) override
        {
            Note("SetFont " + std::string(name) + " " + std::to_string(points));
        }
        void SetRowSetting(std::int32_t setting) override { Note("SetRowSetting " + std::to_string(setting)); }
        void MoveToStart() override { Note("MoveToStart"); }
        void SetHeadingRow(std::int32_t row, bool heading) override
        {
            Note("SetHeadingRow " + std::to_string(row) + " " + Flag(heading));
        }
        void AddFooterPageNumber(std::int32_t alignment, bool onFirstPage) override
        {
            Note("AddFooterPageNumber " + std::to_string(alignment) + " " + Flag(onFirstPage));
        }

    private:
        void Note(std::string call) { word_.calls.push_back(std::move(call)); }
        RecordingWord& word_;
    };

    class Application final : public os::WordApplication {
    public:
        explicit Application(RecordingWord& word) : word_(word) {}
        std::string_view TypeName() const override { return word_.isGone ? "Object" : "Application"; }
        void SetWindowState(std::int32_t state) override
        {
            word_.calls.push_back("SetWindowState " + std::to_string(state));
        }
        std::shared_ptr<os::WordDocument> AddDocument() override
        {
            word_.calls.emplace_back("AddDocument");
            return std::make_shared<Document>(word_);
        }
        void SetVisible(bool visible) override { word_.calls.push_back("SetVisible " + Flag(visible)); }

    private:
        RecordingWord& word_;
    };
};

}  // namespace kvx::test
