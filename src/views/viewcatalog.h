#pragma once

#include <span>
#include <string_view>

struct ReportView
{
    std::string_view name;
    std::string_view definition; // the whole CREATE VIEW text, sent as it stands
};

// The report views in the order the run creates them: every view after the
// views it reads.
std::span<const ReportView> reportViewsInCreateOrder();

// The views the run drops, in its order. Two created views are never dropped.
std::span<const std::string_view> reportViewDropOrder();
