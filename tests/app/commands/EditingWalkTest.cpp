#include "tests/support/EditingWalk.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cstdint>
#include <vector>

namespace {

/// Byte strings long enough for a hundred and more steps.
rc::Gen<std::vector<std::uint8_t>> longBytes()
{
    return rc::gen::scale(10.0, rc::gen::arbitrary<std::vector<std::uint8_t>>());
}

} // namespace

RC_GTEST_PROP(EditingWalk, KeepsRecordsAndXmlInStepAndUndoesExactly, ())
{
    const auto bytes = *longBytes();
    ByteSource source(bytes);
    const QByteArray failure = EditingWalk(source).run();
    if (!failure.isEmpty())
        RC_FAIL(failure.toStdString());
}
