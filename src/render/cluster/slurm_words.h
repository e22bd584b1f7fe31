// What is said to a Slurm cluster, and what it answers.
#pragma once

#include "render/render_driver.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kvo {

/// The script of each job of an array of `shares`: the engine makes the share of the job's own number,
/// counted from 1, into the order's work folder, and behind it the script says how that has ended.
std::string jobScript(const std::string& engine, const RenderOrder& order, const std::string& document,
                      int shares);

/// The file in the work folder that a job's standard error goes to.
std::string jobErrors(const std::string& workFolder, int share);

std::vector<std::string> submitArguments(const std::string& workFolder, const std::string& script,
                                         const std::vector<int>& shares);
std::vector<std::string> askArguments(const std::string& job);
/// Asks for the numbers of the arrays of a work folder that are waiting or at work.
std::vector<std::string> searchArguments(const std::string& workFolder);

/// The number of an array that has been handed in: "4711" or "4711;cluster". Nothing for another line.
std::optional<std::string> jobNumberIn(std::string_view line);

/// True for the line that a job says at its end, and for that of one of the array `job` which has failed.
bool saysEnded(std::string_view line);
bool saysFailed(std::string_view line, const std::string& job);

/// True for what is said where the cluster has forgotten a job that has ended.
bool saysForgotten(std::string_view line);

}  // namespace kvo
