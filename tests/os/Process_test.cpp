#include "os/Process.h"

#include "basic/Error.h"
#include "os/Files.h"
#include "os/Objects.h"
#include "os/SystemInfo.h"
#include "os/WordProcessor.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <unistd.h>

namespace kvx::os {
namespace {

TEST(Process, StartGivesTheArgumentsAndWaitTheStatus)
{
    const std::string file =
        (std::filesystem::temp_directory_path() / ("kvx_process_" + std::to_string(::getpid()))).string();
    const auto process = CurrentShell().Start("sh", {"-c", "printf %s \"$1\" > \"$2\"; exit 7", "sh", "a b|c", file});
    EXPECT_EQ(process->Wait(), 7);
    EXPECT_EQ(process->Wait(), 7) << "a second time too";
    EXPECT_FALSE(process->IsRunning());
    EXPECT_EQ(ReadText(file), "a b|c");
    std::filesystem::remove(file);
}

TEST(Process, ARunningProgramIsSeenRunningAndASignalGives128More)
{
    const auto process = CurrentShell().Start("sh", {"-c", "kill -9 $$"});
    EXPECT_EQ(process->Wait(), 137);
    const auto sleeper = CurrentShell().Start("sleep", {"0.2"});
    EXPECT_TRUE(sleeper->IsRunning());
    EXPECT_EQ(sleeper->Wait(), 0);
}

TEST(Process, AMissingProgramOrDocumentIsError53)
{
    std::int32_t program = 0, document = 0;
    try {
        CurrentShell().Start("kvx-there-is-no-such-program", {});
    } catch (const basic::Error& error) {
        program = error.Number;
    }
    try {
        CurrentShell().Open("kvx-there-is-no-such-document.txt");
    } catch (const basic::Error& error) {
        document = error.Number;
    }
    EXPECT_EQ(program, 53);
    EXPECT_EQ(document, 53);
}

TEST(Process, AnotherShellTakesTheSystemsPlace)
{
    class Recorder final : public Shell {
    public:
        std::string opened;
        std::unique_ptr<Process> Start(std::string_view, const std::vector<std::string>&) override { return nullptr; }
        void Open(std::string_view document) override { opened = document; }
    } recorder;
    SetCurrentShell(&recorder);
    CurrentShell().Open("brief.doc");
    SetCurrentShell(nullptr);
    EXPECT_EQ(recorder.opened, "brief.doc");
    EXPECT_EQ(&CurrentShell(), &SystemShell());
}

class Nothing final : public basic::Object {
public:
    std::string TypeName() const override { return "n_choose_os"; }
    basic::Variant Get(std::string_view, std::span<const basic::Variant>) override { return {}; }
    void Put(std::string_view, const basic::Variant&, std::span<const basic::Variant>) override {}
    basic::Variant Call(std::string_view, std::span<basic::Variant>) override { return {}; }
};

TEST(Objects, ARegisteredObjectIsMadeAnewForEveryCall)
{
    EXPECT_EQ(CreateObject("DSW2.n_choose_os"), nullptr);
    RegisterObject("DSW2.n_choose_os", [] { return std::make_shared<Nothing>(); });
    const basic::ObjectRef one = CreateObject("dsw2.N_CHOOSE_OS"), two = CreateObject("DSW2.n_choose_os");
    ASSERT_NE(one, nullptr);
    EXPECT_NE(one, two);
    RegisterObject("DSW2.n_choose_os", {});
    EXPECT_EQ(CreateObject("DSW2.n_choose_os"), nullptr);
}

TEST(Objects, WithoutAWordProcessorThereIsNone)
{
    EXPECT_EQ(CreateWordProcessor(), nullptr);
}

TEST(SystemInfo, TellsAtLeastTheKernel)
{
    EXPECT_NE(SystemInfoText().find("Kernel: Linux "), std::string::npos);
}

}  // namespace
}  // namespace kvx::os
