#pragma once

#include <QDir>
#include <QProcess>
#include <QString>

#include <gtest/gtest.h>

#include <windows.h>

/// A file that another process holds open. Windows only.
class HeldFile
{
public:
    /// @param shared what others may do meanwhile: FILE_SHARE_READ and so on, 0 for nothing.
    HeldFile(const QString& path, DWORD shared)
    {
        m_holder.start(QStringLiteral(FILE_HOLDER),
                       {QDir::toNativeSeparators(path), QString::number(shared)});
        m_holder.waitForReadyRead();
        EXPECT_EQ(m_holder.readAllStandardOutput().trimmed(), "held");
    }
    HeldFile(const HeldFile&) = delete;
    HeldFile& operator=(const HeldFile&) = delete;
    ~HeldFile()
    {
        m_holder.closeWriteChannel();
        EXPECT_TRUE(m_holder.waitForFinished());
    }

private:
    QProcess m_holder;
};
