#pragma once

#include <QString>

#include <optional>

/// Success, or the reason of a failure in words for the user.
///
/// A reason is plain text, one sentence without a full stop. Names in it are verbatim, so show it
/// where mark-up is not interpreted.
class [[nodiscard]] Outcome
{
public:
    /// Success.
    Outcome() = default;

    static Outcome failure(const QString& reason)
    {
        Outcome outcome;
        outcome.m_reason = reason;
        return outcome;
    }

    /// Whether it was a success.
    explicit operator bool() const { return !m_reason; }

    /// Empty after a success.
    [[nodiscard]] QString reason() const { return m_reason.value_or(QString()); }

private:
    std::optional<QString> m_reason;
};
