// SPDX-License-Identifier: MIT
// What the selected profiles tell an encoder, and how large its output will be.
#pragma once

class QWidget;
class Selection;

// Follows the selection, which outlives it.
QWidget* MakeEncoderPane(const Selection& selection);
