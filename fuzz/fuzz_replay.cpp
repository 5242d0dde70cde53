// Arbitrary bytes opened as a replay, then moved through as the viewer does: to the end, back,
// to the middle, and redrawn in every way of viewing.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "cursor/replay_cursor.h"
#include "view/field_pictures.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace trelvin;
    ReplayCursor cursor;
    ReplayText text({reinterpret_cast<const char*>(data), size});
    cursor.open(text);
    const int fields = cursor.world().fieldCount();
    cursor.setMap(ViewMode::All, {fields, fields});
    cursor.last();
    cursor.back();
    cursor.jumpTo(cursor.eventCount() / 2);
    for (ViewMode mode : {ViewMode::All, ViewMode::AsLes, ViewMode::AsLouka}) {
        cursor.setViewMode(mode);
        for (int p : cursor.frame().pictures)
            if (p < 1 || p > picture::kCount) std::abort();
    }
    return 0;
}
