#include <QtGlobal>

#include "demo/maps/demomap.h"

namespace Fixture {

std::vector<DemoCategory> DemoWorld() {
    std::vector<DemoCategory> world{
        {"Towns", DemoRows::Fernhollow, DemoMaps::Towns()},
        {"Routes", DemoRows::Fernway, DemoMaps::Routes()},
        {"Caves", DemoRows::GloomrockUpper, DemoMaps::Caves()},
        {"Houses", DemoRows::HomeDown, DemoMaps::Houses()},
        // A category kept for maps still to come: it lists nothing.
        {"Unused", DemoRows::UnusedFirst, {}},
    };
    for (const DemoCategory& category : world)
        for (size_t i = 0; i < category.Maps.size(); ++i)
            if (category.Maps[i].Row != category.FirstMap + static_cast<int>(i))
                qFatal("Map %s stands out of its category's rows",
                       qPrintable(category.Maps[i].Info.Name));
    return world;
}

}  // namespace Fixture
