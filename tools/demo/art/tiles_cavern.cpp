#include "demo/art/outdoorart.h"
#include "demo/art/tileruns.h"

namespace Fixture::TileRuns {

namespace {
using OutdoorArt::East;
using OutdoorArt::North;
using OutdoorArt::NorthEast;
using OutdoorArt::NorthWest;
using OutdoorArt::South;
using OutdoorArt::SouthEast;
using OutdoorArt::SouthWest;
using OutdoorArt::West;

// The cave floor is darker than the ground outside, with light and dark grit.
// Sprites are drawn on the lightest shade; in a cave their surroundings take
// the floor's shade.
TileCanvas OnFloor(TileCanvas c) {
    c.FillBackground(0, 1);
    return c;
}

TileCanvas CaveFloor(int variant) {
    TileCanvas c(8, 8, 1);
    switch (variant) {
        case 0:
            c.Art(0, 0,
                  {
                      "--------",
                      "-.------",
                      "------+-",
                      "---+----",
                      "--------",
                      "+-----.-",
                      "---.----",
                      "--------",
                  });
            break;
        case 1:
            c.Art(0, 0,
                  {
                      "------.-",
                      "--+-----",
                      "--------",
                      "-----.--",
                      "-+------",
                      "--------",
                      "----+---",
                      ".-------",
                  });
            break;
        default:
            c.Art(0, 0,
                  {
                      "+-+-----",
                      "-+------",
                      "--------",
                      "----.-.-",
                      "-----.--",
                      "--+-----",
                      "-+-+----",
                      "--------",
                  });
            break;
    }
    return c;
}

// The raised rock between passages: dark stone with cracks.
TileCanvas Rock(int variant) {
    TileCanvas c(8, 8, 2);
    if (variant == 0) {
        c.Art(0, 0,
              {
                  "++++#+++",
                  "+-++#+++",
                  "+++#++-+",
                  "###+++++",
                  "+++++###",
                  "+-+++#++",
                  "++++#++-",
                  "++++#+++",
              });
    } else {
        c.Art(0, 0,
              {
                  "+++#++++",
                  "++#++-++",
                  "###+++++",
                  "+++++++#",
                  "+-+++##+",
                  "+++##+++",
                  "++#+++-+",
                  "++#+++++",
              });
    }
    return c;
}

// Rock with floor on the given sides. Towards the south the rock shows its
// face, a wall of vertical strokes, so that the passages look sunk.
TileCanvas RockEdge(int sides, int corners) {
    TileCanvas c = Rock(0);
    if (sides & South)
        c.Art(0, 3,
              {
                  "########",
                  "-+-+-+-+",
                  "-+-#-+-#",
                  "-#-+-#-+",
                  "########",
              });
    if (sides & North) {
        c.HLine(0, 0, 8, 1);
        c.HLine(0, 1, 8, 3);
    }
    if (sides & West) {
        c.VLine(0, 0, 8, 1);
        c.VLine(1, (sides & North) ? 1 : 0, (sides & South) ? 8 : 8, 3);
    }
    if (sides & East) {
        c.VLine(7, 0, 8, 1);
        c.VLine(6, (sides & North) ? 1 : 0, 8, 3);
    }
    if ((sides & North) && (sides & West))
        c.Art(0, 0,
              {
                  "--",
                  "-#",
              });
    if ((sides & North) && (sides & East))
        c.Art(6, 0,
              {
                  "--",
                  "#-",
              });
    if (corners & NorthWest)
        c.Art(0, 0,
              {
                  "-#",
                  "#+",
              });
    if (corners & NorthEast)
        c.Art(6, 0,
              {
                  "#-",
                  "+#",
              });
    if (corners & SouthWest)
        c.Art(0, 5,
              {
                  "#+",
                  "-#",
                  "-#",
              });
    if (corners & SouthEast)
        c.Art(6, 5,
              {
                  "+#",
                  "#-",
                  "#-",
              });
    return c;
}

void DrawRock(TileRun& run) {
    run.Add("rock", Rock(0));
    run.Add("rock2", Rock(1));
    run.Add("rock_n", RockEdge(North, 0));
    run.Add("rock_s", RockEdge(South, 0));
    run.Add("rock_w", RockEdge(West, 0));
    run.Add("rock_e", RockEdge(East, 0));
    run.Add("rock_nw", RockEdge(North | West, 0));
    run.Add("rock_ne", RockEdge(North | East, 0));
    run.Add("rock_sw", RockEdge(South | West, 0));
    run.Add("rock_se", RockEdge(South | East, 0));
    run.Add("rock_inw", RockEdge(0, NorthWest));
    run.Add("rock_ine", RockEdge(0, NorthEast));
    run.Add("rock_isw", RockEdge(0, SouthWest));
    run.Add("rock_ise", RockEdge(0, SouthEast));
}

void DrawCaveWater(TileRun& run) {
    TileCanvas water(8, 8, 2);
    water.Art(0, 0,
              {
                  "++++++++",
                  "+--+++++",
                  "-++-++++",
                  "++++++++",
                  "++++++++",
                  "+++++--+",
                  "++++-++-",
                  "++++++++",
              });
    run.Add("pool", water);
    using OutdoorArt::Shore;
    run.Add("pool_n", OnFloor(Shore(water, North, 0)));
    run.Add("pool_s", OnFloor(Shore(water, South, 0)));
    run.Add("pool_w", OnFloor(Shore(water, West, 0)));
    run.Add("pool_e", OnFloor(Shore(water, East, 0)));
    run.Add("pool_nw", OnFloor(Shore(water, North | West, 0)));
    run.Add("pool_ne", OnFloor(Shore(water, North | East, 0)));
    run.Add("pool_sw", OnFloor(Shore(water, South | West, 0)));
    run.Add("pool_se", OnFloor(Shore(water, South | East, 0)));
    run.Add("pool_inw", OnFloor(Shore(water, 0, NorthWest)));
    run.Add("pool_ine", OnFloor(Shore(water, 0, NorthEast)));
    run.Add("pool_isw", OnFloor(Shore(water, 0, SouthWest)));
    run.Add("pool_ise", OnFloor(Shore(water, 0, SouthEast)));
}

void DrawCaveThings(TileRun& run) {
    TileCanvas ladder(16, 16);
    ladder.Art(0, 0,
               {
                   "................",
                   "...##......##...",
                   "...#+######+#...",
                   "...#+------+#...",
                   "...#+######+#...",
                   "...#+......+#...",
                   "...#+######+#...",
                   "...#+------+#...",
                   "...#+######+#...",
                   "...#+......+#...",
                   "...#+######+#...",
                   "...#+------+#...",
                   "...#+######+#...",
                   "...#+......+#...",
                   "..+##+....+##+..",
                   "................",
               });
    run.AddCanvas("ladder", OnFloor(ladder));

    TileCanvas hole(16, 16);
    hole.Art(0, 0,
             {
                 "................",
                 "....########....",
                 "..##++++++++##..",
                 ".#++########++#.",
                 ".#+##########+#.",
                 "#+###+----+###+#",
                 "#+###+#--#+###+#",
                 "#+###+#--#+###+#",
                 "#+###+#--#+###+#",
                 "#+###+#--#+###+#",
                 ".#+##+----+##+#.",
                 ".#++###########.",
                 "..##++++++++##..",
                 "....########....",
                 "................",
                 "................",
             });
    run.AddCanvas("hole", OnFloor(hole));

    TileCanvas boulder(16, 16);
    boulder.Art(0, 0,
                {
                    "................",
                    "....########....",
                    "..##--------##..",
                    ".#---+--+-----#.",
                    ".#--+----+--+-#.",
                    "#---+----+--+--#",
                    "#-+++----++++--#",
                    "#---+----+--+-+#",
                    "#---+----+--+-+#",
                    "#-+++----++++-+#",
                    "#---+----+--+++#",
                    ".#--+----+--++#.",
                    ".#++++++++++++#.",
                    "..##++++++++##..",
                    "....########....",
                    "................",
                });
    run.AddCanvas("boulder", OnFloor(boulder));

    TileCanvas crack(16, 16);
    crack.Art(0, 0,
              {
                  "................",
                  "................",
                  "......####......",
                  "....##-..-##....",
                  "...#-..#---+#...",
                  "..#-.--#--+-+#..",
                  "..#---#---#-+#..",
                  ".#--+#---##-++#.",
                  ".#-++--#---+-+#.",
                  ".#+-+---#--++-#.",
                  "..#+++--#-++++#.",
                  "..##++++++++##..",
                  "....########....",
                  "................",
                  "................",
                  "................",
              });
    run.AddCanvas("smashrock", OnFloor(crack));

    TileCanvas spike(8, 16);
    spike.Art(0, 0,
              {
                  "........",
                  "...#....",
                  "...#....",
                  "..#-#...",
                  "..#-#...",
                  "..#-+#..",
                  ".#--+#..",
                  ".#--+#..",
                  ".#-++#..",
                  "#--+++#.",
                  "#-+-++#.",
                  "#--+++#.",
                  "#-+++++#",
                  "########",
                  "++++++++",
                  "........",
              });
    run.AddCanvas("stalagmite", OnFloor(spike));

    TileCanvas crystal(8, 16);
    crystal.Art(0, 0,
                {
                    "........",
                    "....#...",
                    "...#.#..",
                    "...#.#..",
                    ".#.#-#..",
                    "#.##-#..",
                    "#-#.-#.#",
                    "#-#.-##.",
                    "#-#--#-#",
                    ".#+#+#-#",
                    ".#+#+#+#",
                    "..#+##+#",
                    ".######.",
                    "++++++++",
                    "........",
                    "........",
                });
    run.AddCanvas("crystal", OnFloor(crystal));

    // A drop in the floor that can be jumped down, with rounded ends.
    TileCanvas ledge(8, 8);
    ledge.Art(0, 0,
              {
                  "........",
                  "........",
                  "........",
                  "########",
                  "+-+-+-+-",
                  "-+-+-+-+",
                  "........",
                  "........",
              });
    run.Add("cliff", OnFloor(ledge));
    TileCanvas ledgeEnd(8, 8);
    ledgeEnd.Art(0, 0,
                 {
                     "........",
                     "........",
                     "...#####",
                     "..#+-+-+",
                     ".#+-+-+-",
                     ".#-+-+-+",
                     "..#.....",
                     "........",
                 });
    run.Add("cliff_l", OnFloor(ledgeEnd));
    run.Add("cliff_r", OnFloor(ledgeEnd.Mirrored()));

    TileCanvas exit(16, 8);
    exit.Art(0, 0,
             {
                 "################",
                 "#+++++++++++++++",
                 "#+.............#",
                 "#+.-.-.-.-.-.-.#",
                 "#+.............#",
                 "#+.-.-.-.-.-.-.#",
                 "#+.............#",
                 "################",
             });
    run.AddCanvas("exit", OnFloor(exit));

    TileCanvas planks(8, 8, 1);
    planks.Art(0, 0,
               {
                   "#------#",
                   "#-+----#",
                   "########",
                   "#------#",
                   "#----+-#",
                   "########",
                   "#------#",
                   "#-+----#",
               });
    run.Add("bridge", planks);
    TileCanvas planksTop = planks;
    planksTop.Art(0, 0,
                  {
                      "########",
                      "#+----+#",
                  });
    run.Add("bridge_top", planksTop);
    run.Add("bridge_bottom", planksTop.Flipped());

    TileCanvas steps(8, 8);
    steps.Art(0, 0,
              {
                  "########",
                  "#------#",
                  "#++++++#",
                  "########",
                  "#------#",
                  "#++++++#",
                  "########",
                  "........",
              });
    run.Add("steps", steps);

    TileCanvas dark(8, 8, 3);
    dark.Set(2, 2, 2);
    dark.Set(5, 6, 2);
    run.Add("dark", dark);
    TileCanvas sand(8, 8);
    sand.Art(0, 0,
             {
                 "-+---.--",
                 "--.-+---",
                 "+---.-+-",
                 "-.+---.-",
                 "---.-+--",
                 "-+---.-+",
                 "---+-.--",
                 ".---+---",
             });
    run.Add("gravel", sand);

    TileCanvas mushroom(8, 8);
    mushroom.Art(0, 0,
                 {
                     "........",
                     "..####..",
                     ".#-..-#.",
                     "#-.--.-#",
                     "########",
                     "..#-.#..",
                     "..#-.#..",
                     ".######.",
                 });
    run.Add("mushroom", OnFloor(mushroom));
    TileCanvas bones(8, 8);
    bones.Art(0, 0,
              {
                  "........",
                  ".#....#.",
                  "#.#..#.#",
                  ".#.##.#.",
                  "...##...",
                  ".#.##.#.",
                  "#.#..#.#",
                  ".#....#.",
              });
    run.Add("bones", OnFloor(bones));
    TileCanvas rubble(8, 8);
    rubble.Art(0, 0,
               {
                   "........",
                   ".##.....",
                   "#-+#..#.",
                   ".##..#-#",
                   "......#.",
                   "..##....",
                   ".#-+#...",
                   "..##....",
               });
    run.Add("rubble", OnFloor(rubble));
}

void DrawMine(TileRun& run) {
    TileCanvas pit(16, 16);
    pit.Art(0, 0,
            {
                "................",
                "...##########...",
                "..#++++++++++#..",
                ".#+----------+#.",
                ".#-..........-#.",
                ".#-..-....-..-#.",
                ".#-...........#.",
                ".#-.....-.....#.",
                ".#-..-......-.#.",
                ".#-...........#.",
                ".#-..........-#.",
                ".#+----------+#.",
                "..#++++++++++#..",
                "...##########...",
                "................",
                "................",
            });
    run.AddCanvas("pit", OnFloor(pit));

    TileCanvas column(8, 16);
    column.Art(0, 0,
               {
                   "#+++++++",
                   "#+#++#++",
                   ".#+++#+.",
                   ".#++#++.",
                   ".#+++++.",
                   ".#+#+++.",
                   ".#++++#.",
                   ".#+++++.",
                   ".#+#+++.",
                   ".#+++#+.",
                   ".#++++#.",
                   ".#+#+++.",
                   "#+++++++",
                   "########",
                   "++++++++",
                   "........",
               });
    run.AddCanvas("column", OnFloor(column));

    TileCanvas rail(8, 8);
    rail.Art(0, 0,
             {
                 "........",
                 "########",
                 "+..+..+.",
                 "+..+..+.",
                 "+..+..+.",
                 "+..+..+.",
                 "########",
                 "........",
             });
    run.Add("rail_h", OnFloor(rail));
    run.Add("rail_v", OnFloor(rail.Turned()));
    TileCanvas bend(8, 8);
    bend.Art(0, 0,
             {
                 ".#....#.",
                 ".#+..+#.",
                 ".#....##",
                 ".#+.....",
                 ".#...+..",
                 ".##.....",
                 "..######",
                 "........",
             });
    run.Add("rail_ne", OnFloor(bend));
    run.Add("rail_nw", OnFloor(bend.Mirrored()));
    run.Add("rail_se", OnFloor(bend.Flipped()));
    run.Add("rail_sw", OnFloor(bend.Flipped().Mirrored()));

    TileCanvas torch(8, 8, 2);
    torch.Art(0, 0,
              {
                  "+++..+++",
                  "++.--.++",
                  "++.-#.++",
                  "+++..+++",
                  "+++##+++",
                  "++#--#++",
                  "+++##+++",
                  "+++##+++",
              });
    run.Add("torch", torch);

    TileCanvas beam(24, 8);
    beam.Art(0, 0,
             {
                 "########################",
                 "#+-+-+-+-+-+-+-+-+-+-+-#",
                 "########################",
                 ".#+#................#+#.",
                 ".#+#................#+#.",
                 ".#+#................#+#.",
                 ".#+#................#+#.",
                 ".#+#................#+#.",
             });
    run.AddCanvas("beam", OnFloor(beam));
    TileCanvas prop(8, 8);
    prop.Art(0, 0,
             {
                 ".#+#....",
                 ".#+#....",
                 ".#+#....",
                 ".#+#....",
                 ".#+#....",
                 ".#+#....",
                 "#####...",
                 "+++++...",
             });
    run.Add("prop_l", OnFloor(prop));
    run.Add("prop_r", OnFloor(prop.Mirrored()));

    TileCanvas ore = Rock(0);
    ore.Art(1, 2,
            {
                "##",
                "#..#",
                " #-#",
                "  #",
            });
    run.Add("ore", ore);
    TileCanvas ore2 = Rock(1);
    ore2.Art(3, 3,
             {
                 " ##",
                 "#.-#",
                 "#--#",
                 " ##",
             });
    run.Add("ore2", ore2);

    TileCanvas puddle = CaveFloor(0);
    puddle.Art(1, 2,
               {
                   " ####",
                   "#++-+#",
                   "#+++-+#",
                   " #####",
               });
    run.Add("puddle", puddle);

    TileCanvas fossil(16, 16, 2);
    fossil.Art(0, 0,
               {
                   "++++++++++++++++",
                   "++++######++++++",
                   "+++#......##++++",
                   "++#..####...#+++",
                   "++#.#....##..#++",
                   "+#.#..##...#.#++",
                   "+#.#.#..#..#..#+",
                   "+#.#.#.#..#...#+",
                   "+#.#..#..##..#++",
                   "+#..#...#...#+++",
                   "++#..###...#++++",
                   "+++##....##+++++",
                   "+++++####+++++++",
                   "++++++++++++++++",
                   "++#+++++++++#+++",
                   "++++++++++++++++",
               });
    run.AddCanvas("fossil", fossil);

    // Light falling through a gap in the ceiling.
    TileCanvas light(16, 16);
    light.Art(0, 0,
              {
                  "................",
                  "......-..-......",
                  "....-........-..",
                  "..-............-",
                  "................",
                  ".-..............",
                  "................",
                  "-...............",
                  "................",
                  ".-..............",
                  "................",
                  "..-............-",
                  "....-........-..",
                  "......-..-......",
                  "................",
                  "................",
              });
    for (int y = 0; y < 16; ++y)
        for (int x = 0; x < 16; ++x) {
            const int dx = 2 * x - 15;
            const int dy = 2 * y - 15;
            if (dx * dx + dy * dy > 15 * 15) light.Set(x, y, 1);
        }
    run.AddCanvas("skylight", light);

    TileCanvas web(8, 8);
    web.Art(0, 0,
            {
                "#.#.#...",
                ".###....",
                "##.##...",
                ".###.#..",
                "#.#..#..",
                "...#.#..",
                "....##..",
                "........",
            });
    run.Add("web", OnFloor(web));
    TileCanvas moss = CaveFloor(1);
    moss.Art(0, 4,
             {
                 ".+.+....",
                 "+-+-+...",
                 ".+.+.+..",
                 "....+-+.",
             });
    run.Add("moss", moss);
}
}  // namespace

void DrawCavern(TileRun& run) {
    run.Add("floor", CaveFloor(0));
    run.Add("floor2", CaveFloor(1));
    run.Add("floor3", CaveFloor(2));
    DrawRock(run);
    DrawCaveWater(run);
    DrawCaveThings(run);
    DrawMine(run);
    // The plain floor appears a second time, where the mine's tracks begin.
    run.Add("floor_mine", CaveFloor(0));
    run.Finish();
}

}  // namespace Fixture::TileRuns
