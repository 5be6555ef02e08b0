#pragma once

#include "adapters/office/OfficeWordProcessor.h"
#include "basic/Error.h"
#include "os/Process.h"
#include "os/WordProcessor.h"

#include <gtest/gtest.h>
#include <pugixml.hpp>
#include <zip.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kvx::adapters::office {

using Texts = std::vector<std::string>;

/// A desktop that notes what it is asked to open.
class RecordingShell final : public os::Shell {
public:
    RecordingShell() { os::SetCurrentShell(this); }
    ~RecordingShell() override { os::SetCurrentShell(nullptr); }
    std::unique_ptr<os::Process> Start(std::string_view, const std::vector<std::string>&) override
    {
        basic::Raise(basic::kErrFileNotFound);
    }
    void Open(std::string_view document) override
    {
        if (failure) throw basic::Error(*failure);
        opened.emplace_back(document);
    }

    Texts opened;
    std::optional<basic::Error> failure;
};

/// A folder that is gone after the test.
class TestFolder {
public:
    TestFolder()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "office_test_XXXXXX").string();
        path_ = ::mkdtemp(pattern.data());
    }
    ~TestFolder() { std::filesystem::remove_all(path_); }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;
    const std::string& Path() const { return path_; }
    Texts Files() const
    {
        Texts files;
        for (const auto& entry : std::filesystem::directory_iterator(path_))
            files.push_back(entry.path().string());
        std::ranges::sort(files);
        return files;
    }

private:
    std::string path_;
};

/// The parts of a document, read by a program of another make.
class Docx {
public:
    explicit Docx(const std::string& path)
    {
        int code = 0;
        zip_t* archive = zip_open(path.c_str(), ZIP_RDONLY | ZIP_CHECKCONS, &code);
        if (archive == nullptr) {
            ADD_FAILURE() << path << " is no archive: error " << code;
            return;
        }
        for (zip_int64_t i = 0; i < zip_get_num_entries(archive, 0); ++i) {
            zip_stat_t stat;
            zip_stat_index(archive, static_cast<zip_uint64_t>(i), 0, &stat);
            std::string content(stat.size, '\0');
            zip_file_t* file = zip_fopen_index(archive, static_cast<zip_uint64_t>(i), 0);
            EXPECT_EQ(zip_fread(file, content.data(), stat.size), static_cast<zip_int64_t>(stat.size)) << stat.name;
            zip_fclose(file);
            names.emplace_back(stat.name);
            auto& part = parts_[stat.name] = std::make_unique<pugi::xml_document>();
            const pugi::xml_parse_result parsed =
                part->load_buffer(content.data(), content.size(), pugi::parse_default | pugi::parse_ws_pcdata);
            EXPECT_TRUE(parsed) << stat.name << ": " << parsed.description();
        }
        zip_discard(archive);
    }

    /// The nodes of a part that an XPath finds.
    pugi::xpath_node_set Find(const std::string& part, const std::string& path) const
    {
        const auto found = parts_.find(part);
        return found == parts_.end() ? pugi::xpath_node_set{} : found->second->select_nodes(path.c_str());
    }
    std::size_t Count(const std::string& path) const { return Find("word/document.xml", path).size(); }
    /// An attribute of the one node that the XPath finds; "(none)" when it finds none, or the node has no such thing.
    std::string Value(const std::string& path, const char* attribute = "w:val",
                      const std::string& part = "word/document.xml") const
    {
        const pugi::xpath_node_set nodes = Find(part, path);
        if (nodes.size() > 1) return "(several)";
        return nodes.empty() ? "(none)" : nodes.first().node().attribute(attribute).as_string("(none)");
    }
    /// The table's cells as text: "<br>" and "<tab>" for breaks and tabs in a cell.
    std::vector<Texts> Rows() const
    {
        std::vector<Texts> rows;
        for (const pugi::xpath_node& row : Find("word/document.xml", "//w:tr")) {
            rows.emplace_back();
            for (const pugi::xml_node& cell : row.node().children("w:tc")) {
                std::string text;
                for (const pugi::xml_node& part : cell.child("w:p").child("w:r").children()) {
                    if (std::string_view(part.name()) == "w:t") text += part.text().get();
                    if (std::string_view(part.name()) == "w:br") text += "<br>";
                    if (std::string_view(part.name()) == "w:tab") text += "<tab>";
                }
                rows.back().push_back(text);
            }
        }
        return rows;
    }
    bool HasPart(const std::string& name) const { return parts_.contains(name); }

    Texts names;

private:
    std::map<std::string, std::unique_ptr<pugi::xml_document>> parts_;
};

/// A word processor that writes to a folder of the test; what it defers waits in `posted`.
class OfficeTest : public testing::Test {
protected:
    OfficeTest()
    {
        RegisterOfficeWordProcessor(folder.Path(), [this](std::function<void()> work) { posted.push_back(work); });
        application = os::CreateWordProcessor();
    }
    ~OfficeTest() override { os::RegisterWordProcessor({}); }

    /// The steps by which the library prints a text.
    std::shared_ptr<os::WordDocument> Print(std::string_view text, bool flag = false)
    {
        application->SetWindowState(os::kWordWindowMinimized);
        const std::shared_ptr<os::WordDocument> document = application->AddDocument();
        application->SetVisible(false);
        document->SetMirrored(true);
        document->SetSectionStart(os::kWordSectionNewPage);
        document->SetWindowFlag(flag);
        const std::string_view first = text.substr(0, text.find('\n'));
        document->AddTable(static_cast<std::int32_t>(std::ranges::count(text, '\n')),
                           static_cast<std::int32_t>(std::ranges::count(first, '\t')) + 1);
        document->SelectTable();
        document->PasteText(text);
        document->SelectRow(1);
        document->SetBold(true);
        document->SetShading(0xC0C0C0);
        document->SelectRow(2);
        document->SetBold(true);
        document->SelectTable();
        document->SetFont("Arial", 10);
        document->SetRowSetting(os::kWordRowsCentered);
        document->MoveToStart();
        application->SetVisible(true);
        return document;
    }
    /// The steps by which it makes a list of it.
    static void Finish(os::WordDocument& document)
    {
        document.SetHeadingRow(1, true);
        document.SetHeadingRow(2, true);
        document.AddFooterPageNumber(os::kWordPageNumberRight, true);
    }
    /// What the message loop does once the print is over.
    void RunPosted()
    {
        for (const auto& work : std::exchange(posted, {}))
            work();
    }
    /// The one document in the folder, as the user's program reads it.
    Docx Written() const
    {
        const Texts files = folder.Files();
        EXPECT_EQ(files.size(), 1U);
        return Docx(files.empty() ? "" : files.front());
    }
    /// Prints, opens and reads back.
    Docx Printed(std::string_view text, bool flag = false)
    {
        Print(text, flag);
        RunPosted();
        return Written();
    }
    Docx PrintedList(std::string_view text, bool flag = false)
    {
        Finish(*Print(text, flag));
        RunPosted();
        return Written();
    }

    TestFolder folder;
    RecordingShell shell;
    std::vector<std::function<void()>> posted;
    std::shared_ptr<os::WordApplication> application;
};

}  // namespace kvx::adapters::office
