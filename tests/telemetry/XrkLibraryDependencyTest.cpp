#include "telemetry/TelemetrySession.h"
#include "telemetry/XrkLibrary.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(MissingDependency, FailsTheLoadWithTheReasonOfTheLoader)
{
    TelemetrySession session;
    EXPECT_FALSE(session.load(u"any.xrk"_s, QString::fromUtf8(DEPENDENT_LIBRARY)));
    EXPECT_FALSE(session.isLoaded());
    const QString expected = u"The reader library could not be loaded: "_s;
    EXPECT_TRUE(session.errorString().startsWith(expected)) << session.errorString().toStdString();
    EXPECT_GT(session.errorString().size(), expected.size()) << "the loader's own words";
}

TEST(MissingDependency, IsAllThatKeptTheLibraryFromLoading)
{
    const XrkLibrary dependency(DEPENDENCY_LIBRARY); // loaders take what is loaded already
    ASSERT_TRUE(dependency.isLoaded());
    const XrkLibrary library(DEPENDENT_LIBRARY);
    EXPECT_TRUE(library.isLoaded());
}

} // namespace
