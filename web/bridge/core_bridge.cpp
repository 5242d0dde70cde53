// The page's way into the core, through embind. Text leaves it as UTF-8, which embind hands
// to JavaScript as strings.
#include <string>

#include <emscripten/bind.h>
#include <emscripten/val.h>

#include "model/replay_loader.h"
#include "model/text_encoding.h"
#include "model/world_state.h"

namespace {

using emscripten::val;
using namespace trelvin;

// A replay file's bytes (a Uint8Array from the page) loaded as the window loads a file:
// { loaded, eventCount, messages }, the messages being the loader's.
val loadReplay(const std::string& bytes) {
    WorldState world;
    const LoadOutcome loaded = LoadReplayFromBytes(world, bytes);
    val messages = val::array();
    if (!loaded.succeeded()) messages.call<void>("push", cp1250ToUtf8(loaded.failure));
    val result = val::object();
    result.set("loaded", world.loaded);
    result.set("eventCount", world.eventCount);
    result.set("messages", messages);
    return result;
}

}  // namespace

EMSCRIPTEN_BINDINGS(trelvin_core) {
    emscripten::function("loadReplay", &loadReplay);
}
