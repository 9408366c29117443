#include "demo/maps/demolegends.h"

#include "demo/blocks/demotilesets.h"

namespace Fixture::DemoLegends {

TextMap Overworld() {
    TextMap map(DemoBlocks().Set(DemoTilesets::Overworld));
    const std::pair<char, const char*> blocks[] = {
        {'T', "trees"},    {'.', "path"},     {'g', "grass"},    {'W', "tallgrass"},
        {'f', "flowers"},  {'b', "bushes"},   {'o', "boulder"},  {'s', "sign"},
        {'m', "mailbox"},  {'a', "sand"},     {'l', "ledge_w"},  {'L', "ledge"},
        {'r', "ledge_e"},  {'F', "fence"},    {'E', "fence_e"},  {'i', "hedge_w"},
        {'h', "hedge"},    {'j', "hedge_e"},  {'Z', "steps"},    {'B', "flowerbed"},
        {'C', "cave"},     {'*', "lilies"},   {'=', "bridge"},   {'1', "mix:TTGG"},
        {'2', "mix:GGTT"}, {'3', "mix:TGTG"}, {'4', "mix:GTGT"}, {'5', "mix:TGGG"},
        {'6', "mix:GTGG"}, {'7', "mix:GGTG"}, {'8', "mix:GGGT"},
    };
    for (const auto& [letter, name] : blocks)
        map.Block(letter, name);
    map.Block('H', "home", 2, 2);
    map.Block('J', "home2", 2, 2);
    map.Block('K', "hall", 3, 2);
    map.Block('P', "shop", 2, 2);
    map.Area('~', "water", "*=");
    return map;
}

TextMap Cavern() {
    TextMap map(DemoBlocks().Set(DemoTilesets::Cavern));
    const std::pair<char, const char*> blocks[] = {
        {'.', "floor"},      {'U', "ladder_up"},   {'D', "ladder_down"}, {'b', "boulder"},
        {'k', "smashrock"},  {'m', "stalagmites"}, {'c', "crystals"},    {'-', "cliff"},
        {'<', "cliff_w"},    {'>', "cliff_e"},     {'E', "exit"},        {'=', "bridge"},
        {'z', "steps"},      {',', "gravel"},      {'x', "litter"},      {'t', "track_h"},
        {'v', "track_v"},    {'o', "puddle"},      {'S', "skylight"},    {'w', "web"},
        {'q', "moss"},       {'p', "pit"},         {'|', "column"},      {'O', "ore"},
        {'R', "fossil"},     {'B', "beam"},        {'d', "dark"},        {'T', "torch"},
        {'F', "floor_mine"}, {'J', "track_ws"},    {'L', "track_ne"},
    };
    for (const auto& [letter, name] : blocks)
        map.Block(letter, name);
    map.Area('#', "rock", "TORd");
    map.Area('~', "pool", "=");
    return map;
}

TextMap Forest() {
    TextMap map(DemoBlocks().Set(DemoTilesets::Forest));
    const std::pair<char, const char*> blocks[] = {
        {'C', "canopy"}, {'n', "canopy_n"}, {'s', "canopy_s"},  {'T', "trees"},
        {'g', "grass"},  {'.', "path"},     {'W', "tallgrass"}, {'c', "clearing"},
    };
    for (const auto& [letter, name] : blocks)
        map.Block(letter, name);
    return map;
}

TextMap Harbour() {
    TextMap map(DemoBlocks().Set(DemoTilesets::Harbour));
    const std::pair<char, const char*> blocks[] = {
        {'.', "sand"},       {':', "meadow"}, {'P', "pines"},    {'p', "pier"},  {'q', "pier_end"},
        {'=', "boardwalk"},  {'b', "boat"},   {'r', "searock"},  {'o', "buoy"},  {'A', "palm"},
        {'L', "lighthouse"}, {'c', "crates"}, {'B', "barrels"},  {'n', "nets"},  {'u', "ruins"},
        {'i', "pillar"},     {'M', "peaks"},  {'K', "cliff"},    {'d', "dunes"}, {'s', "stones"},
        {'S', "signpost"},   {'t', "tent"},   {'f', "campfire"},
    };
    for (const auto& [letter, name] : blocks)
        map.Block(letter, name);
    map.Area('~', "sea", "pqbro");
    return map;
}

}  // namespace Fixture::DemoLegends
