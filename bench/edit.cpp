#include "Bench.h"
#include "QuietDesktop.h"
#include "TreeForest.h"

#include "stands/F_Waldort.h"

#include <cstdio>
#include <filesystem>
#include <functional>

// Work on single stands of a whole forest: selecting, renaming, adding and deleting one must not walk the tree. Each is
// held against the same statements run by plain SQLite on a copy of the file.
namespace kvx::bench {
namespace {

class Editor {
public:
    Editor(F_Waldort& form, QuietDesktop& desktop) : form_(form), desktop_(desktop), tree_(form.TreeView1) {}

    // A stand in the middle of the forest, another one each time.
    ui::Node Leaf(std::int64_t number)
    {
        std::string key = "K";
        for (const std::string& level : KeyOfLeaf(number).levels)
            key += "\r\n" + level;
        return tree_.Find(key);
    }
    void Select(const ui::Node& node)
    {
        form_.Protect([&] { tree_.UserClickNode(node); });
    }
    void Rename(const ui::Node& node, std::string_view text)
    {
        Select(node);
        form_.Protect([&] { tree_.UserStartEdit(); });
        EndEdit(text);
    }
    void Add(const ui::Node& parent, std::string_view text)
    {
        Select(parent);
        form_.Protect([&] { form_.btnNeuerWO.UserClick(); });
        EndEdit(text);
    }
    void Delete(const ui::Node& node)
    {
        Select(node);
        form_.Protect([&] { form_.btnLoschen.UserClick(); });
    }

private:
    void EndEdit(std::string_view text)
    {
        form_.Protect([&] {
            tree_.UserEditText(text, 0);
            tree_.UserEndEdit(true);
        });
        desktop_.DoEvents();
    }

    F_Waldort& form_;
    QuietDesktop& desktop_;
    ui::TreeView& tree_;
};

struct Job {
    std::string_view name;
    std::function<void(Editor&, std::int64_t)> work;  // on the stand with that number
};

}  // namespace

int RunEdit(const Arguments& arguments)
{
    const std::int64_t rows = arguments.Number("--rows", 1000000), count = arguments.Number("--n", 200);
    const TemporaryDatabase database, copy;
    MakeStands(database, rows);
    MakeTablesAroundStands(database);
    RunRaw(OpenRaw(database).get(), "PRAGMA wal_checkpoint(TRUNCATE)");
    std::filesystem::copy_file(database.Path(), copy.Path(), std::filesystem::copy_options::overwrite_existing);

    const Job jobs[] = {
        {"select", [](Editor& editor, std::int64_t i) { editor.Select(editor.Leaf(i)); }},
        {"rename", [](Editor& editor, std::int64_t i) { editor.Rename(editor.Leaf(i), "x" + std::to_string(i)); }},
        {"add",
         [](Editor& editor, std::int64_t i) { editor.Add(editor.Leaf(i + 1).Parent(), "y" + std::to_string(i)); }},
        {"delete", [](Editor& editor, std::int64_t i) { editor.Delete(editor.Leaf(i + 2)); }},
    };
    std::string line = "rows=" + std::to_string(rows);
    QuietDesktop desktop;
    const KvxVar session = OpenSession(database);
    const RawDatabase raw = OpenRaw(copy);
    desktop.shown = [] {};
    desktop.work = [&](ui::Form& shown) {
        auto& form = static_cast<F_Waldort&>(shown);
        Editor editor(form, desktop);
        StatementLog log(session.dbAdo);
        const std::int64_t leaves = rows * 3 / 5;  // stays inside what MakeStands has made
        for (const Job& job : jobs) {
            double oursMs = 0, rawMs = 0;
            for (std::int64_t i = 0; i < count; ++i) {
                // Six leaves stand under one parent: the jobs take different ones of a parent far from the last.
                const std::int64_t number = (leaves / count * i) / 6 * 6;
                oursMs += Measure([&] { job.work(editor, number); });
                std::vector<std::string> texts = log.Take();
                for (std::string& text : texts)
                    text = PlainText(text);
                rawMs += Measure([&] { RunTexts(raw.get(), texts); });
            }
            char part[120];
            std::snprintf(part, sizeof part, " %s_raw_us=%.0f %s_ours_us=%.0f %s_ratio=%.2f", job.name.data(),
                          rawMs * 1000 / static_cast<double>(count), job.name.data(),
                          oursMs * 1000 / static_cast<double>(count), job.name.data(), oursMs / rawMs);
            line += part;
        }
    };
    F_Waldort form;
    form.Run(session, /*ID_AL=*/0, /*OnlyRead=*/false, /*ID_WALDORT_Root=*/0, nullptr);
    std::puts(line.c_str());
    return 0;
}

}  // namespace kvx::bench
