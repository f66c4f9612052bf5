#pragma once

#include <QByteArray>

#include <optional>
#include <vector>

/// Builds ZIP archives byte by byte, also such as no tool would write: every field of every record
/// can be made to lie.
namespace RawArchive {

inline constexpr quint16 kStored = 0;
inline constexpr quint16 kDeflate = 8;
inline constexpr quint16 kEncrypted = 1U << 0U;
inline constexpr quint16 kDataDescriptor = 1U << 3U;
inline constexpr quint16 kUtf8Name = 1U << 11U;
/// External attributes of a symbolic link made on Unix; needs kMadeOnUnix.
inline constexpr quint32 kSymbolicLink = 0120777U << 16U;
inline constexpr quint32 kDosFolder = 0x10; ///< external attribute
inline constexpr quint16 kMadeOnUnix = 3U << 8U | 20U;

struct Member
{
    QByteArray name;
    QByteArray content;        ///< as unpacked; compressed as method says
    quint16 method = kDeflate; ///< any other than stored and deflate stores the content
    quint16 flags = 0;         ///< kDataDescriptor moves sizes and CRC behind the data
    std::optional<QByteArray> data =
        {};                             ///< stands in the archive instead of the compressed content
    std::optional<quint32> crc = {};    ///< instead of the right one
    std::optional<quint64> size = {};   ///< declared unpacked size instead of the right one
    std::optional<quint32> offset = {}; ///< of the local record instead of the right one
    std::optional<QByteArray> localName = {};  ///< name in the local record when it differs
    bool listedOnly = false;                   ///< has no local record; offset says whose it takes
    bool wideSizes = false;                    ///< sizes stand in the 64-bit extra field
    bool plainLocal = false;                   ///< but in the local header as usual
    bool wideOffset = false;                   ///< the offset is in that field, too
    QByteArray otherField = {};                ///< an extra field before that one
    std::optional<QByteArray> localField = {}; ///< instead of it in the local header
    quint16 madeBy = 0;
    quint32 date = 0; ///< time in the lower, date in the upper half
    quint16 internalAttributes = 0;
    quint32 attributes = 0; ///< external attributes
    QByteArray comment = {};
};

struct Archive
{
    std::vector<Member> members;
    QByteArray before; ///< junk in front; offsets do not count it
    QByteArray after;  ///< junk behind the end record
    QByteArray comment;
    std::optional<quint16> count = {};     ///< in the end record instead of the right one
    std::optional<quint16> diskCount = {}; ///< likewise, of the members on this disk
    bool wideEnd = false;                  ///< write the 64-bit end records too
    bool endElsewhere = false; ///< the end record leaves size and place to the 64-bit one
};

[[nodiscard]] QByteArray build(const Archive& archive);
[[nodiscard]] QByteArray build(const std::vector<Member>& members);
/// The raw deflate stream of content.
[[nodiscard]] QByteArray deflated(const QByteArray& content);

} // namespace RawArchive
