#include "demo/art/outdoorart.h"
#include "demo/art/tileruns.h"

namespace Fixture::TileRuns {

namespace {
using namespace OutdoorArt;

// A small house, 8 x 8 tiles: a shingled roof, a wall with two windows and a
// door. Each distinct tile is added once; blocks put them together.
void DrawHomeParts(TileRun& run) {
    TileCanvas roof(8, 8, 2);
    roof.Art(0, 0,
             {
                 "++++++++",
                 "+++#+++#",
                 "+++#+++#",
                 "########",
                 "++++++++",
                 "+#+++#++",
                 "+#+++#++",
                 "########",
             });
    TileCanvas ridge = roof;
    ridge.Art(0, 0,
              {
                  "........",
                  "########",
                  "-.-.-.-.",
                  "########",
              });
    TileCanvas eave = roof;
    eave.Art(0, 3,
             {
                 "########",
                 "--------",
                 "########",
                 "++++++++",
                 "........",
             });
    const auto left = [](TileCanvas c, int topRows) {
        c.VLine(0, topRows, 8 - topRows, 3);
        c.Fill(0, 0, 1, topRows, 0);
        return c;
    };
    const auto right = [](TileCanvas c, int topRows) {
        c.VLine(7, topRows, 8 - topRows, 3);
        c.Fill(7, 0, 1, topRows, 0);
        return c;
    };
    run.Add("ridge_l", left(ridge, 1));
    run.Add("ridge", ridge);
    run.Add("ridge_r", right(ridge, 1));
    run.Add("roof_l", left(roof, 0));
    run.Add("roof", roof);
    run.Add("roof_r", right(roof, 0));
    run.Add("eave_l", left(eave, 0));
    run.Add("eave", eave);
    run.Add("eave_r", right(eave, 0));

    TileCanvas wall(8, 8);
    wall.Art(0, 0,
             {
                 "........",
                 "--------",
                 "........",
                 "........",
                 "--------",
                 "........",
                 "........",
                 "--------",
             });
    TileCanvas wallL = wall;
    wallL.VLine(0, 0, 8, 3);
    TileCanvas wallR = wall;
    wallR.VLine(7, 0, 8, 3);
    run.Add("wall_l", wallL);
    run.Add("wall", wall);
    run.Add("wall_r", wallR);

    TileCanvas window = wall;
    window.Art(0, 0,
               {
                   "        ",
                   ".######.",
                   ".#-.#.#.",
                   ".#..#-#.",
                   ".######.",
                   ".#-.#.#.",
                   ".######.",
                   "  ++++  ",
               });
    run.Add("window", window);

    TileCanvas doorTop(8, 8);
    doorTop.Art(0, 0,
                {
                    "--------",
                    ".######.",
                    ".#++++#.",
                    ".#+--+#.",
                    ".#+--+#.",
                    ".#++++#.",
                    ".#+++##.",
                    ".#++++#.",
                });
    TileCanvas doorBottom(8, 8);
    doorBottom.Art(0, 0,
                   {
                       ".#++++#.",
                       ".#+--+#.",
                       ".#+--+#.",
                       ".#++++#.",
                       ".#++++#.",
                       "########",
                       "#------#",
                       "########",
                   });
    run.Add("door_top", doorTop);
    run.Add("door", doorBottom);

    TileCanvas base = wall;
    base.Art(0, 5,
             {
                 "++++++++",
                 "########",
                 "........",
             });
    TileCanvas baseL = base;
    baseL.VLine(0, 0, 7, 3);
    TileCanvas baseR = base;
    baseR.VLine(7, 0, 7, 3);
    run.Add("base_l", baseL);
    run.Add("base", base);
    run.Add("base_r", baseR);
}

// A large building with a flat roof, a sign board and a glass double door.
void DrawHallParts(TileRun& run) {
    TileCanvas flat(8, 8, 1);
    flat.Art(0, 0,
             {
                 "--------",
                 "-+---+--",
                 "--------",
                 "--------",
                 "---+---+",
                 "--------",
                 "--------",
                 "--------",
             });
    TileCanvas flatTop = flat;
    flatTop.Art(0, 0,
                {
                    "........",
                    "########",
                    "........",
                });
    TileCanvas flatEdge = flat;
    flatEdge.Art(0, 4,
                 {
                     "########",
                     "++++++++",
                     "########",
                     "........",
                 });
    const auto sideL = [](TileCanvas c) {
        c.VLine(0, 1, 7, 3);
        c.VLine(1, 2, 6, 0);
        c.Set(0, 0, 0);
        return c;
    };
    const auto sideR = [](TileCanvas c) {
        c.VLine(7, 1, 7, 3);
        c.VLine(6, 2, 6, 0);
        c.Set(7, 0, 0);
        return c;
    };
    run.Add("flat_tl", sideL(flatTop));
    run.Add("flat_t", flatTop);
    run.Add("flat_tr", sideR(flatTop));
    run.Add("flat_l", sideL(flat));
    run.Add("flat", flat);
    run.Add("flat_r", sideR(flat));
    run.Add("flat_bl", sideL(flatEdge));
    run.Add("flat_b", flatEdge);
    run.Add("flat_br", sideR(flatEdge));

    // The sign board: a diamond emblem between two plain halves.
    TileCanvas board(16, 8);
    board.Art(0, 0,
              {
                  "################",
                  "#..............#",
                  "#.....####.....#",
                  "#....##++##....#",
                  "#....##++##....#",
                  "#.....####.....#",
                  "#..............#",
                  "################",
              });
    run.AddCanvas("board", board);

    TileCanvas glass(16, 16);
    glass.Art(0, 0,
              {
                  "################",
                  "#-..---##--..--#",
                  "#-.----##-.----#",
                  "#.-----##.-----#",
                  "#------##------#",
                  "#------##------#",
                  "#-----+##-----+#",
                  "#----++##----++#",
                  "#---+++##---+++#",
                  "#-----###------#",
                  "#-----+##+-----#",
                  "#-----###------#",
                  "#------##------#",
                  "################",
                  "#--------------#",
                  "################",
              });
    run.AddCanvas("glassdoor", glass);
}

void DrawWaterParts(TileRun& run) {
    const TileCanvas water = Water(0);
    run.Add("water", water);
    run.Add("water2", Water(1));
    run.Add("shore_n", Shore(water, North, 0));
    run.Add("shore_s", Shore(water, South, 0));
    run.Add("shore_w", Shore(water, West, 0));
    run.Add("shore_e", Shore(water, East, 0));
    run.Add("shore_nw", Shore(water, North | West, 0));
    run.Add("shore_ne", Shore(water, North | East, 0));
    run.Add("shore_sw", Shore(water, South | West, 0));
    run.Add("shore_se", Shore(water, South | East, 0));
    run.Add("shore_inw", Shore(water, 0, NorthWest));
    run.Add("shore_ine", Shore(water, 0, NorthEast));
    run.Add("shore_isw", Shore(water, 0, SouthWest));
    run.Add("shore_ise", Shore(water, 0, SouthEast));

    TileCanvas lily = water;
    lily.Art(1, 2,
             {
                 " ###",
                 "#++.#",
                 "#+++#",
                 " ###",
             });
    run.Add("lily", lily);

    // A bridge across water runs left to right: rails above and below planks.
    TileCanvas planks(8, 8, 1);
    planks.Art(0, 0,
               {
                   "---#---#",
                   "---#---#",
                   "-+-#-+-#",
                   "---#---#",
                   "---#---#",
                   "---#-+-#",
                   "---#---#",
                   "---#---#",
               });
    TileCanvas railTop = planks;
    railTop.Art(0, 0,
                {
                    "+..++..+",
                    "########",
                    "+#++#++#",
                    "########",
                });
    TileCanvas railBottom = planks;
    railBottom.Art(0, 4,
                   {
                       "########",
                       "+#++#++#",
                       "########",
                       "+--++--+",
                   });
    run.Add("bridge_top", railTop);
    run.Add("bridge", planks);
    run.Add("bridge_bottom", railBottom);
}

void DrawGroundParts(TileRun& run) {
    run.Add("grass", Grass(0));
    run.Add("grass2", Grass(1));
    run.Add("tallgrass", TallGrass());
    run.Add("path", Path());
    run.Add("flower", Flower(0));
    run.Add("flower2", Flower(1));

    TileCanvas sand(8, 8);
    sand.Art(0, 0,
             {
                 "-.....-.",
                 "...-....",
                 ".-....-.",
                 ".....-..",
                 "-..-....",
                 "......-.",
                 ".-...-..",
                 "....-...",
             });
    run.Add("sand", sand);

    // The mouth of a cave: a rocky mound around a dark opening.
    TileCanvas mouth(16, 16);
    mouth.Art(0, 0,
              {
                  "....########....",
                  "..##-.--+--+##..",
                  ".#-.--+--+-+-+#.",
                  "#-.-+--######++#",
                  "#--+-##++++++#+#",
                  "#-+-#++######+##",
                  "#+-#+##########+",
                  "#-+#+##########+",
                  "#+-#+##########+",
                  "#-+#+##########+",
                  "#+-#+##########+",
                  "#-+#+##########+",
                  "#+-#+##########+",
                  "#++##----------#",
                  ".#############+.",
                  "................",
              });
    run.AddCanvas("cavemouth", mouth);

    TileCanvas ledge(8, 8);
    ledge.Art(0, 0,
              {
                  "........",
                  "........",
                  "........",
                  "########",
                  "-+--+--+",
                  ".-..-..-",
                  "........",
                  "........",
              });
    TileCanvas ledgeL = ledge;
    ledgeL.Art(0, 0,
               {
                   "........",
                   "........",
                   "..######",
                   ".#+--+--",
                   "#-..-..-",
                   "#.......",
                   ".#......",
                   "........",
               });
    run.Add("ledge_l", ledgeL);
    run.Add("ledge", ledge);
    run.Add("ledge_r", ledgeL.Mirrored());

    TileCanvas fence(8, 8);
    fence.Art(0, 0,
              {
                  ".##.....",
                  "#-+#####",
                  "#-+-----",
                  "#-+#####",
                  "#-+#....",
                  "#-+#####",
                  "#-+-----",
                  "#-+#####",
              });
    TileCanvas post(8, 8);
    post.Art(0, 0,
             {
                 "........",
                 "..####..",
                 "..#-+#..",
                 "..#-+#..",
                 "..#-+#..",
                 "..#-+#..",
                 "..#-+#..",
                 ".+####+.",
             });
    run.Add("fence", fence);
    run.Add("post", post);

    TileCanvas hedge(8, 8);
    hedge.Art(0, 0,
              {
                  "..####..",
                  ".#-.--#.",
                  "#-.---+#",
                  "#----+-#",
                  "#--+--+#",
                  "#-+--+-#",
                  "#++++++#",
                  ".######.",
              });
    run.Add("hedge_l", hedge);
    TileCanvas hedgeMid(8, 8);
    hedgeMid.Art(0, 0,
                 {
                     "########",
                     "-.--.---",
                     "--+---+-",
                     "-+--+---",
                     "---+--+-",
                     "-+--+--+",
                     "++++++++",
                     "########",
                 });
    run.Add("hedge", hedgeMid);
    run.Add("hedge_r", hedge.Mirrored());

    TileCanvas steps(8, 8);
    steps.Art(0, 0,
              {
                  "#......#",
                  "########",
                  "#------#",
                  "#......#",
                  "########",
                  "#------#",
                  "#......#",
                  "########",
              });
    run.Add("steps", steps);

    TileCanvas mailbox(8, 16);
    mailbox.Art(0, 0,
                {
                    "........",
                    "........",
                    "........",
                    "..####..",
                    ".#-..-#.",
                    "#------#",
                    "#--##--#",
                    "#------#",
                    "########",
                    "...#+...",
                    "...#+...",
                    "...#+...",
                    "...#+...",
                    "..##+#..",
                    "........",
                    "........",
                });
    run.AddCanvas("mailbox", mailbox);
}
}  // namespace

void DrawOverworld(TileRun& run) {
    DrawGroundParts(run);
    run.AddCanvas("tree", Tree());
    run.AddCanvas("bush", Bush());
    run.AddCanvas("boulder", Boulder());
    run.AddCanvas("sign", Sign());
    DrawWaterParts(run);
    DrawHomeParts(run);
    DrawHallParts(run);
    // The first grass picture appears twice, as the grass under the town's
    // flower beds; the second copy keeps block definitions apart.
    run.Add("grass_bed", Grass(0));
    run.Finish();
}

}  // namespace Fixture::TileRuns
