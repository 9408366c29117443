#include "demo/art/outdoorart.h"
#include "demo/art/tileruns.h"

namespace Fixture::TileRuns {

namespace {
// Dense woods: a canopy that joins up seamlessly, with rims of tree tops above
// and trunks below.
void DrawCanopy(TileRun& run) {
    // Packed tree crowns on a staggered lattice that repeats every 16
    // pixels: each pixel belongs to its nearest crown, lit from the top left.
    TileCanvas canopy(16, 16);
    const int centres[4][2] = {{4, 4}, {12, 4}, {0, 12}, {8, 12}};
    for (int y = 0; y < 16; ++y)
        for (int x = 0; x < 16; ++x) {
            int best = 1000;
            int bx = 0;
            int by = 0;
            for (const auto& centre : centres)
                for (int wy = -16; wy <= 16; wy += 16)
                    for (int wx = -16; wx <= 16; wx += 16) {
                        const int dx = x - centre[0] - wx;
                        const int dy = y - centre[1] - wy;
                        if (dx * dx + dy * dy < best) {
                            best = dx * dx + dy * dy;
                            bx = dx;
                            by = dy;
                        }
                    }
            quint8 shade = 1;
            if (best >= 18 && bx + by > 0)
                shade = 3;  // the shadowed rim of a crown
            else if (bx + by >= 3)
                shade = 2;
            else if (bx + by <= -4 && best <= 10)
                shade = 0;
            canopy.Set(x, y, shade);
        }
    run.AddCanvas("canopy", canopy);

    TileCanvas rimTop(16, 8);
    rimTop.Art(0, 0,
               {
                   "..####....####..",
                   ".#-..-#..#-..-#.",
                   "#-.--+-##-.--+-#",
                   "#--+-#+--+-+#+-#",
                   "-+#--+#+#+#--+#+",
                   "#-+#-.-+#+#.-#+#",
                   "#-+#--+#+#+-+#+-",
                   "-.-#+#+-#-#+#-.-",
               });
    run.AddCanvas("canopy_top", rimTop);

    TileCanvas rimBottom(16, 8);
    rimBottom.Art(0, 0,
                  {
                      "+#+--+#-#-+#-+#+",
                      "#+#+++#+#++#+#+#",
                      ".##++###.##++##.",
                      "...#+-#....#+-#.",
                      "...#++#....#++#.",
                      "...#+-#....#+-#.",
                      "..##++##..##++##",
                      "................",
                  });
    run.AddCanvas("canopy_bottom", rimBottom);
}

void DrawClearing(TileRun& run) {
    TileCanvas stump(16, 16);
    stump.Art(0, 0,
              {
                  "................",
                  "................",
                  "................",
                  "....########....",
                  "...#--------#...",
                  "..#--+####+--#..",
                  "..#-+#----#+-#..",
                  "..#-+#-##-#+-#..",
                  "..#--+####+--#..",
                  "..##--------##..",
                  "..#+########+#..",
                  "..#+#++#++#++#..",
                  ".##+#++#++#++##.",
                  "#++##++#++#+###+",
                  ".+.#+#....#+#.+.",
                  "................",
              });
    run.AddCanvas("stump", stump);

    TileCanvas log(16, 8);
    log.Art(0, 0,
            {
                "..############..",
                ".#++++++++++###.",
                "#+#-+--+---#-+#.",
                "#+#+--+--+-#+-#.",
                "#+#--+---+-#-+#.",
                ".#++++++++++###.",
                "..############..",
                "................",
            });
    run.AddCanvas("log", log);

    TileCanvas cap(8, 8);
    cap.Art(0, 0,
            {
                "........",
                "...##...",
                "..#.-#..",
                ".#-.--#.",
                ".######.",
                "...#-#+.",
                "...#-#.+",
                "..####..",
            });
    run.Add("toadstool", cap);
    TileCanvas caps(8, 8);
    caps.Art(0, 0,
             {
                 "......+.",
                 ".##...+.",
                 "#.-#....",
                 "####.##.",
                 ".#.##.-#",
                 "..+####.",
                 "....#.#.",
                 "........",
             });
    run.Add("toadstools", caps);

    TileCanvas fern(8, 8);
    fern.Art(0, 0,
             {
                 "...#....",
                 "..#+#.#.",
                 ".#+#+#+#",
                 "#+#+#+#.",
                 ".#+#+#..",
                 "..#+#...",
                 "...#....",
                 "...#....",
             });
    run.Add("fern", fern);

    TileCanvas shade(8, 8, 1);
    shade.Art(0, 0,
              {
                  "--------",
                  "-+-+----",
                  "--+-----",
                  "--------",
                  "--------",
                  "-----+-+",
                  "------+-",
                  "--------",
              });
    run.Add("shadegrass", shade);

    TileCanvas gate(16, 8);
    gate.Art(0, 0,
             {
                 "##............##",
                 "#+#..........#+#",
                 "#+############+#",
                 "#+#-+-+--+-+-#+#",
                 "#+############+#",
                 "#+#..........#+#",
                 "#+#..........#+#",
                 "###..........###",
             });
    run.AddCanvas("gate", gate);

    TileCanvas statue(16, 16);
    statue.Art(0, 0,
               {
                   "......####......",
                   ".....#-..-#.....",
                   ".....#.#.#-#....",
                   "....##-..-+##...",
                   "...#-.####-+-#..",
                   "..#-.-#--#--+#..",
                   "..#-.-#-+#-+-#..",
                   "...#--+##+-+#...",
                   "....##-.--+#....",
                   "....#-.--++#....",
                   "...##########...",
                   "...#--------#...",
                   "..############..",
                   "..#-+-+-+-+-+#..",
                   "..############..",
                   "................",
               });
    run.AddCanvas("statue", statue);

    TileCanvas moss(16, 16);
    moss.Art(0, 0,
             {
                 "................",
                 "................",
                 "....#######.....",
                 "...#+-+-+-+##...",
                 "..#-+-+-+-+-+#..",
                 ".#-..--+-----+#.",
                 ".#-.------+--+#.",
                 "#-.----+-----++#",
                 "#-----+------++#",
                 "#-----------+++#",
                 "#+----+----++++#",
                 ".#+--------+++#.",
                 "..##+++++++++#..",
                 "....#########...",
                 "................",
                 "................",
             });
    run.AddCanvas("mossrock", moss);

    TileCanvas trunk(16, 8);
    trunk.Art(0, 0,
              {
                  ".....#++-#......",
                  ".....#+-+#......",
                  ".....#++-#......",
                  ".....#+-+#......",
                  ".....#++-#......",
                  "....##+-+##.....",
                  "...#+##+##+#....",
                  "...+.+...+.+....",
              });
    run.AddCanvas("trunk", trunk);

    TileCanvas leaves(8, 8);
    leaves.Art(0, 0,
               {
                   "........",
                   ".##.....",
                   "#-+#..#.",
                   ".##..#-#",
                   "....#+#.",
                   ".##..#..",
                   "#-+#....",
                   ".##.....",
               });
    run.Add("leaves", leaves);
    TileCanvas bloom(8, 8);
    bloom.Art(0, 0,
              {
                  "........",
                  ".#.#....",
                  "..#..#.#",
                  ".#.#..#.",
                  ".....#.#",
                  "..#.#...",
                  "...#....",
                  "..#.#...",
              });
    run.Add("bloom", bloom);
    TileCanvas berries(8, 8);
    berries.Art(0, 0,
                {
                    "..####..",
                    ".#-+-+#.",
                    "#+#-##+#",
                    "#-##-#-#",
                    "#+-#+#+#",
                    ".#++-+#.",
                    "..####..",
                    "........",
                });
    run.Add("berries", berries);
}
}  // namespace

void DrawForest(TileRun& run, const TileRun& overworld) {
    // Forest maps share their ground, trees and ponds with the overworld.
    for (const char* name : {"grass", "grass2", "tallgrass", "path", "flower", "flower2"})
        run.Copy(overworld, name);
    for (const char* sprite : {"tree", "bush", "sign"})
        for (int y = 0; y < 2; ++y)
            for (int x = 0; x < 2; ++x)
                run.Copy(overworld, Part(sprite, x, y));
    for (const char* name : {"water", "water2", "shore_n", "shore_s", "shore_w", "shore_e",
                             "shore_nw", "shore_ne", "shore_sw", "shore_se", "fence", "post"})
        run.Copy(overworld, name);
    DrawCanopy(run);
    DrawClearing(run);
    // Two pictures appear twice: the floor of the clearing uses its own grass
    // and path places.
    run.Add("clearing_grass", overworld.At(overworld.Number("grass")));
    run.Add("clearing_path", overworld.At(overworld.Number("path")));
    run.Finish();
}

}  // namespace Fixture::TileRuns
