#include "VKT/base/Logger.h"

#include <gtest/gtest.h>

#include "VKT/support/LogCatcher.h"

using namespace VKT;

namespace {

// What the default logger prints.
std::string Printed(void (*log)(XLogger&))
{
    XLogger logger;
    testing::internal::CaptureStdout();
    log(logger);
    return testing::internal::GetCapturedStdout();
}

TEST(Logger, DefaultPutsThePrefixOfTheLevelInFront)
{
    EXPECT_EQ(Printed([](XLogger& logger) {
                  logger.Log(kInfo, "a");
                  logger.Log(kWarning, "b");
                  logger.LogString(kError, "c");
                  logger.LogString(kDebug, "");
                  logger.LogFormat(kStdOut, "%d of %s", 3, "four");
              }),
              "Info : a\n"
              "Warning : b\n"
              "Error : c\n"
              "Debug : \n"
              "StdOut : 3 of four\n");
}

TEST(Logger, LevelsKeepTheirNumbers)
{
    EXPECT_EQ(kInfo, 0);
    EXPECT_EQ(kWarning, 1);
    EXPECT_EQ(kError, 2);
    EXPECT_EQ(kDebug, 3);
    EXPECT_EQ(kStdOut, 4);
    EXPECT_STREQ(GetLogPrefix(static_cast<XLogLevel>(5)), "");
}

TEST(Logger, DefaultCutsLongMessages)
{
    EXPECT_EQ(Printed([](XLogger& logger) { logger.LogString(kError, std::string(1023, 'x')); }),
              "Error : " + std::string(1023, 'x') + "\n");
    EXPECT_EQ(Printed([](XLogger& logger) { logger.LogString(kError, std::string(1024, 'x')); }),
              "Error : " + std::string(1023, 'x') + "\n");
}

TEST(Logger, FormattedMessagesAreCutForEveryLogger)
{
    LogCatcher log;
    GetLogger()->LogFormat(kInfo, "%s", std::string(5000, 'y').c_str());
    EXPECT_EQ(log.Text(), "Info : " + std::string(1023, 'y') + "\n");
}

TEST(Logger, AllOperationsEndInTheOverride)
{
    LogCatcher log;
    GetLogger()->Log(kWarning, "100%");
    GetLogger()->LogString(kDebug, "%s");
    GetLogger()->LogFormat(kError, "%s:%d", "file", 7);
    EXPECT_EQ(log.Text(), "Warning : 100%\nDebug : %s\nError : file:7\n");
}

TEST(Logger, NullBringsTheDefaultBack)
{
    XLogger* const atFirst = GetLogger();
    ASSERT_NE(atFirst, nullptr);
    LogCatcher log;
    EXPECT_EQ(GetLogger(), &log);
    SetLogger(nullptr);
    EXPECT_EQ(GetLogger(), atFirst);
    SetLogger(&log);
}

}  // namespace
