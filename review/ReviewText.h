#pragma once

#include <QCoreApplication>

/// Translates what reviews say.
class ReviewText
{
    Q_DECLARE_TR_FUNCTIONS(ReviewText)
};
