// SPDX-License-Identifier: MIT
#include "kmManager.h"

kmManager::kmManager() = default;
kmManager::kmManager(const kmManager& other) = default;
kmManager& kmManager::operator=(const kmManager& other) = default;
kmManager::~kmManager() = default;

kmManager& kmManager::GetInstance() { return m_signleInstance; }
