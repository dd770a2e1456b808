#include "terminal/report.h"

#include <cstdio>

#include "terminal/text.h"

namespace tools {

namespace {

std::string Figure(const char* name, const std::string& value) {
    constexpr std::size_t kNameWidth = 18;
    std::string label = std::string("  ") + name + ":";
    label.resize(kNameWidth, ' ');
    return label + value + "\n";
}

std::string Formatted(const char* format, double number) {
    char text[64];
    std::snprintf(text, sizeof(text), format, number);
    return text;
}

std::string SubscriptionsText(const SubscriptionCounts& counts) {
    return std::to_string(counts.Added) + " added, " + std::to_string(counts.Deleted) + " deleted, " +
           std::to_string(counts.Cancelled) + " cancelled";
}

// As much as tells what is asked for.
std::string RequestText(const FunctionRequest& request) {
    constexpr std::size_t kShown = 36;
    const bool isLonger = request.Text.size() > kShown;
    return "  request " + request.Name + ", " + Counted(request.Text.size(), "byte") + ": " +
           Quoted(request.Text.substr(0, kShown)) + (isLonger ? "...\n" : "\n");
}

void AddLine(std::string& text, std::size_t offset, std::size_t width, const std::string& name) {
    text += "| " + std::to_string(offset) + " | " + std::to_string(width) + " | " + name + " |\n";
}

// The rows that end a table are told by the first.
void AddTable(std::string& text, const LayoutTable& table) {
    text += "\n" + table.Title + ", " + Counted(table.Size, "byte") + ":\n\n";
    text += "| Offset | Width | Field |\n|---:|---:|---|\n";
    std::size_t end = table.Offset;
    for (const Field& field : table.Fields) {
        if (field.Name.starts_with("Row2.")) {
            const std::string& last = table.Fields.back().Name;
            AddLine(text, field.Offset, table.Offset + table.Size - field.Offset,
                    "Row2 to " + last.substr(0, last.find('.')) + ", as Row1");
            return;
        }
        if (field.Offset > end) {
            AddLine(text, end, field.Offset - end, "(reserved)");
        }
        AddLine(text, field.Offset, field.Width, field.Name + (field.IsNumber ? " (integer)" : ""));
        end = field.Offset + field.Width;
    }
    if (table.Offset + table.Size > end) {
        AddLine(text, end, table.Offset + table.Size - end, "(reserved)");
    }
}

}  // namespace

std::string ImagesText(const Terminal& terminal) {
    std::string text;
    for (const auto& screen : terminal.Screens()) {
        text += screen->Title + ": " + Counted(screen->Messages, "message") + ", " +
                Counted(screen->Rows, "row") + "\n" + screen->View->Image() + "\n";
    }
    return text;
}

std::string SummaryText(const ReplaySummary& summary, const Terminal& terminal) {
    uint64_t messages = 0;
    uint64_t rows = 0;
    for (const auto& screen : terminal.Screens()) {
        messages += screen->Messages;
        rows += screen->Rows;
    }
    const double perSecond = summary.Seconds > 0 ? static_cast<double>(summary.Packets) / summary.Seconds : 0;
    std::string text = "Summary\n";
    text += Figure("packets", std::to_string(summary.Packets));
    text += Figure("batches", std::to_string(summary.Batches));
    text += Figure("messages", std::to_string(messages));
    text += Figure("rows", std::to_string(rows));
    text += Figure("subscriptions", SubscriptionsText(terminal.Subscriptions()));
    text += Figure("seconds", Formatted("%.3f", summary.Seconds));
    text += Figure("packets/s", Formatted("%.0f", perSecond));
    for (const FunctionRequest& request : terminal.Requests()) {
        text += RequestText(request);
    }
    for (const auto& screen : terminal.Screens()) {
        if (screen->ListChanges > 0) {
            text +=
                "  " + screen->Title + " was told of " + Counted(screen->ListChanges, "list change") + "\n";
        }
    }
    if (summary.Warnings > 0) {
        text += "  " + Counted(summary.Warnings, "warning") + " of messages that contradict their table\n";
    }
    for (const std::string& line : summary.Tally.Report()) {
        text += "  " + line + "\n";
    }
    if (summary.PacketsUnmarked > 0) {
        text += "  " + Counted(summary.PacketsUnmarked, "packet") +
                " behind the last batch mark: a last batch was closed for them\n";
    }
    if (summary.StepsBack > 0) {
        text += "  the capture's time steps back " + Counted(summary.StepsBack, "time") + "\n";
    }
    return text;
}

std::string LayoutsPage() {
    std::string text =
        "# Layouts\n\nWhat each map's Init text holds and what its screen receives, as `tickreplay "
        "--layouts` "
        "prints it. Offsets\ncount from the first byte, with the request tag; an Init text ends with a zero "
        "byte behind its last field. Integers are\nlittle-endian; all else is text.\n";
    for (const ScreenKind* kind : ScreenKinds()) {
        text += std::string("\n## ") + kind->Map + "\n";
        AddTable(text, kind->MakeInit(kind->SampleKey, {}).Table());
        const std::vector<LayoutTable> display = kind->Display();
        for (const LayoutTable& table : display) {
            AddTable(text, table);
        }
        text += display.empty() ? "\nNo display buffer.\n" : "";
    }
    return text;
}

}  // namespace tools
