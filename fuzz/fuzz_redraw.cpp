// The redraw's visibility and picture choice over arbitrary world states.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "view/field_pictures.h"

namespace {

class ByteSource {
public:
    ByteSource(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}
    std::uint8_t byte() { return pos_ < size_ ? data_[pos_++] : 0; }
    std::string pick(std::initializer_list<const char*> choices) {
        const auto index = byte() % choices.size();
        return *(choices.begin() + index);
    }

private:
    const std::uint8_t* data_;
    std::size_t size_;
    std::size_t pos_ = 0;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace trelvin;
    ByteSource in(data, size);
    WorldState world;
    world.loaded = in.byte() != 0;
    world.mapWidth = in.byte() % 40;
    world.mapHeight = in.byte() % 40;
    // The table may disagree with the map's size, as after a failed load.
    const int tileCount = world.fieldCount() + in.byte() % 5 - 2;
    world.tiles.resize(static_cast<std::size_t>(std::max(tileCount, 0)) + 1);
    const int playerCount = in.byte() % 6;
    for (int i = 0; i < playerCount; ++i) {
        Player p;
        p.name = in.pick({"Karel", "Jana", "", "Karel "});
        p.side = in.pick({"les", "louka", "", "Les"});
        p.hqField = in.pick({"A0", "B1", "", "B", "C99999", "\xff"});
        world.players.push_back(p);
    }
    for (std::size_t k = 1; k < world.tiles.size(); ++k) {
        Tile& t = world.tiles[k];
        t.terrain = in.pick({"N", "B", "S", "X", "", "Q", "NN"});
        t.owner = in.pick({"", "Karel", "Jana", "Nikdo"});
        t.armyCount = static_cast<std::int16_t>(in.byte() - 64);
    }
    const auto mode = static_cast<ViewMode>(in.byte() % 3);
    RevealForView(world, mode, world.fieldCount() + 2);
    for (int p : ChoosePictures(world, mode, world.fieldCount() + 2))
        if (p < 1 || p > picture::kCount) std::abort();
    return 0;
}
