// Every system call that an open makes fails once: the document that was open stays as it was, or
// the new one is there completely.

#include "tests/document/FaultScenario.h"
#include "tests/document/OpenPackageFixture.h"
#include "tests/support/FolderTools.h"
#include "tests/support/PackageBuilder.h"

#include <cerrno>

using FaultInjection::Call;
using FaultInjection::Effect;

namespace {

class OpenFaultTest : public OpenPackageFixture, public testing::WithParamInterface<FaultScenario>
{
protected:
    void expectOldDocument(const QString& tempDir)
    {
        EXPECT_EQ(m_document->tempDir(), tempDir);
        ASSERT_EQ(m_document->pageCount(), 1);
        EXPECT_EQ(m_document->pageAt(0)->name, QStringLiteral("Race"));
        EXPECT_EQ(m_document->channels().size(), 1U);
        expectNothingLost(false);
    }

    void expectNewDocument(const QByteArray& page)
    {
        ASSERT_EQ(m_document->pageCount(), 1);
        EXPECT_EQ(m_document->pageAt(0)->name, QString::fromUtf8(page));
        const auto unpacked = FolderTools::contents(m_document->tempDir());
        for (const auto& [path, content] : members(page, kUnmoved)) {
            ASSERT_EQ(unpacked.count(path), 1U) << path.toStdString();
            EXPECT_TRUE(unpacked.at(path) == content)
                << path.toStdString() << " of " << unpacked.at(path).size() << " "
                << content.size();
        }
    }
};

} // namespace

TEST_P(OpenFaultTest, KeepsTheOpenDocumentOrReadsTheNewOne)
{
    const QString other = m_folder + QStringLiteral("/other.zconf2");
    bool struck = true;
    int number = 1;
    for (; struck && !HasFailure(); ++number) {
        SCOPED_TRACE(number);
        ASSERT_TRUE(writePackage(other, "Other"));
        const QString tempDir = m_document->tempDir();
        FaultInjection::arm(world(), GetParam().at(number));
        const bool opened = m_document->open(other);
        struck = FaultInjection::disarm();
        ASSERT_TRUE(QFile::remove(other));
        if (!struck) {
            EXPECT_TRUE(opened);
        }
        if (opened)
            expectNewDocument("Other");
        else
            expectOldDocument(tempDir);
        reopen();
    }
    EXPECT_GT(number, 2) << "no call of this kind was made";
}

INSTANTIATE_TEST_SUITE_P(
    Calls, OpenFaultTest,
    testing::Values(FaultScenario{"OpenFails", Call::Open, Effect::Fail, EIO},
                    FaultScenario{"NoDescriptorsFromHereOn", Call::Open, Effect::FailOnward,
                                  EMFILE},
                    FaultScenario{"ReadFails", Call::Read, Effect::Fail, EIO},
                    FaultScenario{"DiskGoneFromHereOn", Call::Read, Effect::FailOnward, EIO},
                    FaultScenario{"WriteFails", Call::Write, Effect::Fail, EIO},
                    FaultScenario{"DiskFullFromHereOn", Call::Write, Effect::FailOnward, ENOSPC},
                    FaultScenario{"WriteFallsShort", Call::Write, Effect::Short, ENOSPC},
                    FaultScenario{"SeekFails", Call::Seek, Effect::Fail, EIO},
                    FaultScenario{"CloseFails", Call::Close, Effect::Fail, EIO},
                    FaultScenario{"MakeFolderFails", Call::MakeFolder, Effect::Fail, ENOSPC},
                    FaultScenario{"ListFails", Call::List, Effect::Fail, EIO}),
    titleOf);
