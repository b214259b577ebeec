// SPDX-License-Identifier: MIT
// What the folder benchmark tells of its measurements.
#pragma once

#include <string>
#include <vector>

#include "bench/Measure.h"
#include "bench/Targets.h"

// The readers of one folder: each one's time and its ratios to the floor and to pugixml.
std::string ReadersTable(const std::vector<Measurement>& measurements);

// Every round of every reader, as comma-separated values.
std::string ReadersData(const std::vector<Measurement>& measurements);

// The targets whose readers were measured.
std::vector<Target> ReaderTargets(const std::vector<Measurement>& measurements);

// The same for folders of several sizes. The ratio is that of the largest folder to the smallest.
std::string ScalingTable(const std::vector<FolderMeasurement>& folders);
std::string ScalingData(const std::vector<FolderMeasurement>& folders);
std::vector<Target> ScalingTargets(const std::vector<FolderMeasurement>& folders);
