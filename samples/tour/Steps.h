#pragma once

#include <vector>

class Stage;

/// One stop of the tour: what is done, and the name of the picture of what it led to.
struct Step
{
    const char* picture;
    void (*act)(Stage& stage);
};

/// The stops in their order. Each builds on those before it.
[[nodiscard]] std::vector<Step> editingSteps();
[[nodiscard]] std::vector<Step> savingSteps();
[[nodiscard]] std::vector<Step> replaySteps();
