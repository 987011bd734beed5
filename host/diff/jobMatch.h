// Which jobs of two versions of a scene are the same one. Pure: from two results to pairs.
#pragma once

#include <QJsonObject>
#include <vector>

namespace vxH {

/// No job.
constexpr int noJob = -1;

/// For each job of the new result the index of the same job in the old one, or `noJob`. Jobs are the same when they
/// have the driver in common and as much as possible of renderer, take, output, and whether they wait for another job;
/// where several have as much in common, the first goes with the first. A job that differs in renderer or take is only
/// found again as long as there is no other for it to be mistaken for. Where a job stands, and with which number, does
/// not matter; nor does what the scenes' own names and folders bring into the output.
std::vector<int> matchedJobs(const QJsonObject& oldResult, const QJsonObject& newResult);

/// For each job the indices of the jobs that it waits for, in order; `noJob` where there is none with that number. The
/// jobs' own numbers have 8 bits and repeat: of several jobs the nearest before the waiting one is meant, at first
/// among those with its driver and take.
std::vector<std::vector<int>> waitedForJobs(const QJsonObject& result);

}  // namespace vxH
