// SPDX-License-Identifier: MIT
// Together on purpose: only within one file does the language promise the order. The catalogue must be built
// after the icons that it uses and destroyed before them.
#include "kmIconParser.h"
#include "kmManager.h"

kmIconParser kmIconParser::m_signleInstance;
kmManager kmManager::m_signleInstance;
