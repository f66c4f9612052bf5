#pragma once

#include <QDir>
#include <QString>

#include <gtest/gtest.h>

#include <windows.h>

/// A file that another program holds open. Windows checks what is shared by handle, not by process.
/// Windows only.
class HeldFile
{
public:
    /// @param shared what others may do meanwhile: FILE_SHARE_READ and so on, 0 for nothing.
    HeldFile(const QString& path, DWORD shared)
        : m_handle(CreateFileW(QDir::toNativeSeparators(path).toStdWString().c_str(), GENERIC_READ,
                               shared, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr))
    {
        EXPECT_NE(m_handle, INVALID_HANDLE_VALUE);
    }
    HeldFile(const HeldFile&) = delete;
    HeldFile& operator=(const HeldFile&) = delete;
    ~HeldFile() { CloseHandle(m_handle); }

private:
    HANDLE m_handle;
};
