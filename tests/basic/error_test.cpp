#include "basic/Error.h"

#include <gtest/gtest.h>

namespace kvx::basic {
namespace {

std::string DescriptionOf(std::int32_t number)
{
    try {
        Raise(number);
    } catch (const Error& error) {
        EXPECT_EQ(error.Number, number);
        return error.Description;
    }
}

TEST(Error, RunTimeErrorsHaveTheirUsualDescriptions)
{
    EXPECT_EQ(DescriptionOf(5), "Invalid procedure call or argument");
    EXPECT_EQ(DescriptionOf(6), "Overflow");
    EXPECT_EQ(DescriptionOf(9), "Subscript out of range");
    EXPECT_EQ(DescriptionOf(11), "Division by zero");
    EXPECT_EQ(DescriptionOf(13), "Type mismatch");
    EXPECT_EQ(DescriptionOf(53), "File not found");
    EXPECT_EQ(DescriptionOf(70), "Permission denied");
    EXPECT_EQ(DescriptionOf(75), "Path/File access error");
    EXPECT_EQ(DescriptionOf(76), "Path not found");
    EXPECT_EQ(DescriptionOf(91), "Object variable or With block variable not set");
    EXPECT_EQ(DescriptionOf(94), "Invalid use of Null");
    EXPECT_EQ(DescriptionOf(380), "Invalid property value");
    EXPECT_EQ(DescriptionOf(383), "Property is read-only");
    EXPECT_EQ(DescriptionOf(400), "Form already displayed; can't show modally");
    EXPECT_EQ(DescriptionOf(424), "Object required");
    EXPECT_EQ(DescriptionOf(429), "ActiveX component can't create object");
    EXPECT_EQ(DescriptionOf(438), "Object doesn't support this property or method");
    EXPECT_EQ(DescriptionOf(457), "This key is already associated with an element of this collection");
    EXPECT_EQ(DescriptionOf(35600), "Index out of bounds");
}

TEST(Error, AnUnknownNumberIsTheApplicationsOwn)
{
    EXPECT_EQ(DescriptionOf(1000), "Application-defined or object-defined error");
    EXPECT_EQ(DescriptionOf(-2147217900), "Application-defined or object-defined error");
}

TEST(Error, CarriesADescriptionOfItsOwn)
{
    try {
        Raise(kErrTypeMismatch, "no date");
    } catch (const Error& error) {
        EXPECT_STREQ(error.what(), "no date");
        EXPECT_EQ(error.Source, "Korvex_Forms");
        EXPECT_EQ(error.Statement, "");
    }
}

} // namespace
} // namespace kvx::basic
