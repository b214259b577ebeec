// SPDX-License-Identifier: MIT
// Estimates as people read them.
#pragma once

#include "kmSizeEstimate.h"

// The total on one line, which says when a stream has no known size.
void PrintEstimate(const kmSizeEstimate& estimate);

// A line for each stream that counts, and one for the total.
void PrintBreakdown(const kmSizeEstimate& estimate);

// The bit rates, at least one of which is above 0.
void PrintFit(const kmVideoBitrateFit& fit);

// The same for programs; an estimate always stream by stream.
void PrintEstimateAsJson(const kmSizeEstimate& estimate);
void PrintFitAsJson(const kmVideoBitrateFit& fit);
