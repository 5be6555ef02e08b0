#include "basic/Locale.h"

#include "basic/Convert.h"
#include "basic/UseLocale.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <optional>

namespace kvx::basic {
namespace {

/// Clears the variables that name regional settings and puts them back afterwards.
class LocaleFromEnvironmentTest : public testing::Test {
protected:
    LocaleFromEnvironmentTest()
    {
        for (const char* name : kNames) {
            const char* value = std::getenv(name);
            former_[name] = value == nullptr ? std::nullopt : std::optional<std::string>(value);
            unsetenv(name);
        }
    }
    ~LocaleFromEnvironmentTest() override
    {
        for (const auto& [name, value] : former_) {
            if (value)
                setenv(name.c_str(), value->c_str(), 1);
            else
                unsetenv(name.c_str());
        }
    }

private:
    static constexpr const char* kNames[] = {"LC_ALL", "LC_NUMERIC", "LC_TIME", "LANG"};
    std::map<std::string, std::optional<std::string>> former_;
};

TEST_F(LocaleFromEnvironmentTest, IsEnglishWhenNothingIsSaid)
{
    EXPECT_EQ(LocaleFromEnvironment().name, "en-US");
}

TEST_F(LocaleFromEnvironmentTest, IsGermanForEveryGermanCountry)
{
    for (const char* value : {"de_DE.UTF-8", "de_AT", "de"}) {
        setenv("LANG", value, 1);
        EXPECT_EQ(LocaleFromEnvironment().name, "de-DE") << value;
    }
}

TEST_F(LocaleFromEnvironmentTest, TheNearerVariableWins)
{
    setenv("LANG", "en_US.UTF-8", 1);
    setenv("LC_NUMERIC", "de_DE.UTF-8", 1);
    EXPECT_EQ(LocaleFromEnvironment().name, "de-DE");
    setenv("LC_ALL", "C.UTF-8", 1);
    EXPECT_EQ(LocaleFromEnvironment().name, "en-US");
}

TEST_F(LocaleFromEnvironmentTest, AnEmptyVariableSaysNothing)
{
    setenv("LC_ALL", "", 1);
    setenv("LANG", "de_DE.UTF-8", 1);
    EXPECT_EQ(LocaleFromEnvironment().name, "de-DE");
}

TEST(SetLocale, ChangesEveryConversionAfterwards)
{
    const UseLocale use(EnglishLocale());
    EXPECT_EQ(CStr(0.5), "0.5");
    SetLocale(GermanLocale());
    EXPECT_EQ(CStr(0.5), "0,5");
    EXPECT_EQ(CurrentLocale().name, "de-DE");
}

TEST(SetLocale, TakesSettingsOfTheHostsOwn)
{
    Locale swiss = GermanLocale();
    swiss.decimalSeparator = ".";
    swiss.thousandsSeparator = "’";
    const UseLocale use(swiss);
    EXPECT_DOUBLE_EQ(CDbl("1’234.5"), 1234.5);
    EXPECT_EQ(CStr(1234.5), "1234.5");
}

} // namespace
} // namespace kvx::basic
