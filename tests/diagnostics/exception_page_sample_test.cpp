// The sample of docs/diagnostics.md.
#include <krcore/diagnostics/krexception.h>
#include <krcore/diagnostics/krexception_guard.h>

#include <gtest/gtest.h>

#include <stdexcept>

namespace
{

void ReadLayer()
{
    try
    {
        throw std::runtime_error("no such layer");
    }
    KR_CATCH_ALL("layers", 12)
}

void ReadDrawing()
{
    try
    {
        ReadLayer();
    }
    KR_CATCH_ALL_TEXT("drawing", 40, "while reading")
}

} // namespace

TEST(ExceptionPage, SampleGivesWhatItSays)
{
    try
    {
        ReadDrawing();
        ADD_FAILURE() << "nothing was thrown";
    }
    catch (CKrException & exception)
    {
        EXPECT_EQ(exception.GetErrorMessage(true),
                  OLESTR("STL_EXCEPTION::no such layer\n\nwhile reading\nlayers(12): \ndrawing(40): "));
    }
}
