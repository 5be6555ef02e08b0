#include "korvex_loc/TextTable.h"

#include "basic/Text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>

namespace kvx::loc {

namespace {

constexpr std::string_view kSmallFile = "form\tcontrol\tDEUTSCH\tENGLISH\n"
                                        "F_B\tbtnOK\t&Ja\t&Yes\n"
                                        "F_A\tForm\tTitel \tTitle \n"
                                        "F_A2\tForm\tZwei\tTwo\n";

std::string FileText(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

// The letter behind "&"; 0 = none.
char32_t AccessKey(std::string_view caption)
{
    const std::size_t at = caption.find('&');
    if (at == std::string_view::npos || at + 1 >= caption.size()) return 0;
    std::string_view rest = caption.substr(at + 1);
    return basic::UpperCharacter(basic::NextCharacter(rest));
}

std::string TextsFolder()
{
    return KVX_SOURCE_DIR "/korvex_loc/texts/";
}

}  // namespace

TEST(TextTable, RowsAreFoundByTheirWholeKey)
{
    const TextTable table(kSmallFile, 2);
    EXPECT_EQ(table.Find("F_B\tbtnOK", "ENGLISH"), "&Yes");
    EXPECT_EQ(table.Find("F_B", "ENGLISH"), std::nullopt);
}

TEST(TextTable, RowsOfOneFormAreNotMixedWithThoseOfALongerName)
{
    const TextTable table(kSmallFile, 2);
    ASSERT_EQ(table.RowsFrom("F_A\t").size(), 1U);
    EXPECT_EQ(table.Word(table.RowsFrom("F_A\t")[0], "DEUTSCH"), "Titel ");
}

TEST(TextTable, AnUnknownLanguageReadsEnglish)
{
    EXPECT_EQ(TextTable(kSmallFile, 2).Find("F_B\tbtnOK", "FRANCAIS"), "&Yes");
}

TEST(TextTable, TheCaseOfALanguageDoesNotCount)
{
    EXPECT_EQ(TextTable(kSmallFile, 2).Find("F_B\tbtnOK", "Deutsch"), "&Ja");
}

TEST(Texts, TheLibraryHoldsTheFilesOfTheFolder)
{
    for (const char* name : {"catalogue.tsv", "captions.tsv", "columns.tsv"}) {
        const std::string text = FileText(TextsFolder() + name);
        const TextTable table(text, name == std::string("captions.tsv") ? 2 : 1);
        const TextTable& built = name == std::string("catalogue.tsv")  ? Catalogue()
                                 : name == std::string("captions.tsv") ? Captions()
                                                                       : ColumnHeadings();
        ASSERT_EQ(table.Rows().size(), built.Rows().size()) << name;
        for (const TextTable::Row& row : table.Rows())
            for (const std::string_view language : table.Languages())
                EXPECT_EQ(built.Find(row.key, language), table.Word(row, language)) << name << ' ' << row.key;
    }
}

TEST(Texts, EveryIdThatTheDialogsUseIsInTheCatalogue)
{
    std::ifstream file(KVX_SOURCE_DIR "/tests/data/text-ids.tsv");
    std::string id;
    std::getline(file, id);
    int ids = 0;
    for (; std::getline(file, id); ++ids)
        EXPECT_TRUE(Catalogue().Find(id, "DEUTSCH")) << id;
    EXPECT_GE(ids, 160);
}

TEST(Texts, EveryIdThatTheSourcesNameIsInTheCatalogue)
{
    const std::regex call(R"(GetText\((\d+)[,)])");
    for (const char* folder : {"/src", "/host"}) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(KVX_SOURCE_DIR + std::string(folder))) {
            if (entry.path().extension() != ".cpp") continue;
            const std::string source = FileText(entry.path());
            for (std::sregex_iterator use(source.begin(), source.end(), call), end; use != end; ++use)
                EXPECT_TRUE(Catalogue().Find((*use)[1].str(), "DEUTSCH")) << entry.path() << ": " << (*use)[1];
        }
    }
}

TEST(Texts, EveryRowHasAWordInEveryLanguage)
{
    for (const TextTable* table : {&Catalogue(), &Captions(), &ColumnHeadings()}) {
        ASSERT_EQ(table->Languages(), (std::vector<std::string_view>{"DEUTSCH", "ENGLISH"}));
        for (const TextTable::Row& row : table->Rows())
            for (const std::string_view language : table->Languages())
                EXPECT_FALSE(table->Word(row, language).empty()) << row.key << ' ' << language;
    }
}

TEST(Texts, NoKeyStandsTwice)
{
    for (const TextTable* table : {&Catalogue(), &Captions(), &ColumnHeadings()}) {
        const auto twice = std::ranges::adjacent_find(table->Rows(), {}, &TextTable::Row::key);
        EXPECT_EQ(twice, table->Rows().end()) << twice->key;
    }
}

TEST(Texts, AFormHasEveryAccessKeyOnceInEachLanguage)
{
    for (const std::string_view language : Captions().Languages()) {
        std::map<std::string, std::set<char32_t>> keysOfForms;
        for (const TextTable::Row& row : Captions().Rows()) {
            const char32_t key = AccessKey(Captions().Word(row, language));
            if (key == 0) continue;
            const std::string form(row.key.substr(0, row.key.find('\t')));
            EXPECT_TRUE(keysOfForms[form].insert(key).second) << row.key << ' ' << language;
        }
    }
}

TEST(Texts, ColumnNamesAreCapitals)
{
    for (const TextTable::Row& row : ColumnHeadings().Rows())
        EXPECT_EQ(basic::UCase(row.key), row.key);
}

}  // namespace kvx::loc
