#include "macroengine/PluginInfo.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#include "platform/SharedMemory.h"

namespace macroengine {

namespace {

constexpr char kNamePrefix[] = "TOV_MACRO_PLUGIN_INFO_SHARED_MEMORY";

// The layout is shared with other processes. It is addressed by offsets, so that no compiler's padding and no
// width of a pointer can change it.
constexpr int kPlaceCount = 100;
constexpr std::size_t kIdSize = sizeof(std::int32_t);
constexpr std::size_t kHandleSize = sizeof(std::uint64_t);
constexpr std::size_t kHandlesOffset = kPlaceCount * kIdSize;
constexpr std::size_t kTableSize = kHandlesOffset + kPlaceCount * kHandleSize;
static_assert(kHandlesOffset == 400 && kTableSize == 1200);

constexpr std::int32_t kFreeId = -1;
constexpr std::uint64_t kFreeHandle = 0;

std::uint64_t HandleOf(HWND window) {
    return static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(window));
}

HWND WindowOf(std::uint64_t handle) {
    return reinterpret_cast<HWND>(static_cast<std::uintptr_t>(handle));
}

/// The table of the calling process, mapped for as long as the object lives.
class PluginTable {
public:
    /// Maps a table that is there. Without one IsMapped gives false.
    static PluginTable Open() {
        PluginTable table;
        table.memory_.Open(Name(), kTableSize);
        return table;
    }

    /// Makes the table when there is none yet.
    static PluginTable OpenOrCreate() {
        PluginTable table;
        table.memory_.OpenOrCreate(Name(), kTableSize);
        return table;
    }

    bool IsMapped() const { return memory_.Data() != nullptr; }
    bool WasCreated() const { return memory_.WasCreated(); }

    std::int32_t Id(int place) const {
        std::int32_t id = 0;
        std::memcpy(&id, memory_.Data() + IdOffset(place), kIdSize);
        return id;
    }

    std::uint64_t Handle(int place) const {
        std::uint64_t handle = 0;
        std::memcpy(&handle, memory_.Data() + HandleOffset(place), kHandleSize);
        return handle;
    }

    void Store(int place, std::int32_t id, std::uint64_t handle) {
        std::memcpy(memory_.Data() + IdOffset(place), &id, kIdSize);
        std::memcpy(memory_.Data() + HandleOffset(place), &handle, kHandleSize);
    }

    /// Returns the first place that holds the handle, kPlaceCount when none does.
    int FindHandle(std::uint64_t handle) const {
        int place = 0;
        while (place < kPlaceCount && Handle(place) != handle)
            ++place;
        return place;
    }

private:
    static std::string Name() { return kNamePrefix + std::to_string(platform::ProcessId()); }
    static std::size_t IdOffset(int place) { return static_cast<std::size_t>(place) * kIdSize; }
    static std::size_t HandleOffset(int place) {
        return kHandlesOffset + static_cast<std::size_t>(place) * kHandleSize;
    }

    platform::SharedMemory memory_;
};

// Two plain values without a lock: a reader may see the id of one call with the window of another.
std::atomic<int> boardModuleId{0};
std::atomic<HWND> boardModuleWindow{nullptr};

}  // namespace

}  // namespace macroengine

using macroengine::PluginTable;

void SetMacroPluginInfo(int id, HWND window) {
    PluginTable table = PluginTable::OpenOrCreate();
    if (!table.IsMapped()) return;
    if (table.WasCreated()) {
        for (int place = 0; place < macroengine::kPlaceCount; ++place) {
            table.Store(place, macroengine::kFreeId, macroengine::kFreeHandle);
        }
    }
    const int place = table.FindHandle(macroengine::kFreeHandle);
    if (place < macroengine::kPlaceCount) table.Store(place, id, macroengine::HandleOf(window));
}

bool GetMacroPluginInfo(int index, int* id, HWND* window) {
    if (index < 0 || index >= macroengine::kPlaceCount) return false;
    const PluginTable table = PluginTable::Open();
    if (!table.IsMapped()) return false;
    const std::uint64_t handle = table.Handle(index);
    if (handle == macroengine::kFreeHandle) return false;
    if (id != nullptr) *id = table.Id(index);
    if (window != nullptr) *window = macroengine::WindowOf(handle);
    return true;
}

void RemoveMacroPluginInfo(HWND window) {
    // Even here a missing table is made; it then holds zeros, which is as free as the free mark.
    PluginTable table = PluginTable::OpenOrCreate();
    if (!table.IsMapped()) return;
    const int place = table.FindHandle(macroengine::HandleOf(window));
    if (place < macroengine::kPlaceCount) table.Store(place, macroengine::kFreeId, macroengine::kFreeHandle);
}

void SetBoardModuleInfo(int id, HWND window) {
    macroengine::boardModuleId.store(id, std::memory_order_relaxed);
    macroengine::boardModuleWindow.store(window, std::memory_order_relaxed);
}

bool GetBoardModuleInfo(int /*ignored*/, int* id, HWND* window) {
    if (id != nullptr) *id = macroengine::boardModuleId.load(std::memory_order_relaxed);
    if (window != nullptr) *window = macroengine::boardModuleWindow.load(std::memory_order_relaxed);
    return true;
}
