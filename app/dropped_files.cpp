// What the program makes of dropped files.
#include "app/dropped_files.h"

static size_t NameStart(const std::string& path) {
    const size_t separator = path.find_last_of("\\/:");
    return separator == std::string::npos ? 0 : separator + 1;
}

static const Mode* ModeOfFile(const DroppedItem& item) {
    const size_t dot = item.path.rfind('.');
    if (item.folder || dot == std::string::npos || dot < NameStart(item.path)) return nullptr;
    return ModeOfExtension(item.path.substr(dot + 1));
}

static std::string WithSeparator(const std::string& directory) {
    return directory.ends_with('\\') ? directory : directory + '\\';
}

static bool TakeFirst(const DroppedItem& item,
                      const std::function<bool(const std::string&, const Mode&)>& hasFiles,
                      DropPlan& plan) {
    if (!item.folder) {
        plan.mode = ModeOfFile(item);
        plan.directory = item.path.substr(0, NameStart(item.path));
        return plan.mode != nullptr;
    }
    plan.directory = WithSeparator(item.path);
    for (const Mode& mode : Modes()) {
        if (mode.types.empty() || !hasFiles(plan.directory, mode)) continue;
        plan.mode = &mode;
        return true;
    }
    return false;
}

DropPlan PlanDrop(const std::vector<DroppedItem>& items,
                  const std::function<bool(const std::string&, const Mode&)>& hasFiles) {
    DropPlan plan;
    size_t first = 0;
    while (first < items.size() && !TakeFirst(items[first], hasFiles, plan))
        ++first;
    if (first == items.size()) return {};
    if (items[first].folder) return plan;
    for (size_t i = first; i < items.size(); ++i) {
        const std::string& path = items[i].path;
        if (ModeOfFile(items[i]) == plan.mode &&
            path.substr(0, NameStart(path)) == plan.directory) {
            plan.names.push_back(path.substr(NameStart(path)));
        }
    }
    return plan;
}
