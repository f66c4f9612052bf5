#pragma once

#include "tests/support/FaultInjection.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

/// One kind of call that fails in one way; a test makes it strike at the first call, the second ...
struct FaultScenario
{
    std::string title;
    FaultInjection::Call call;
    FaultInjection::Effect effect;
    int error; ///< errno

    [[nodiscard]] FaultInjection::Fault at(int number) const
    {
        return {{call}, number, effect, error};
    }
};

inline std::ostream& operator<<(std::ostream& out, const FaultScenario& scenario)
{
    return out << scenario.title;
}

[[nodiscard]] inline std::string titleOf(const testing::TestParamInfo<FaultScenario>& scenario)
{
    return scenario.param.title;
}
