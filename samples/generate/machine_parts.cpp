#include "machine_parts.h"

#include "Modeller.h"
#include "gear_profile.h"

#include <cmath>
#include <numbers>

namespace samples
{

using NarMeta::Colour;
using NarMetaInfra::ZELReference;
using std::numbers::pi;
using namespace dimension;

namespace
{

constexpr Colour Graphite{68, 76, 88}, Rubber{34, 36, 40}, Teal{22, 116, 130}, LightTeal{64, 156, 166};
constexpr Colour Steel{184, 192, 201}, BrightSteel{214, 220, 227}, DarkSteel{92, 101, 113},
    Zinc{201, 204, 196};
constexpr Colour Brass{222, 178, 82}, Orange{236, 111, 52}, Ivory{232, 229, 220}, Yellow{246, 200, 62};
constexpr Colour Glass{150, 205, 232}, Red{205, 52, 52};

/// Circular holes of one radius about a circle, the first on the x axis.
std::vector<Outline> HoleCircle(int count, double circle, double radius)
{
    std::vector<Outline> holes;
    for (int i = 0; i < count; ++i) {
        double const angle = 2 * pi * i / count;
        holes.push_back(CircularHole({circle * std::cos(angle), circle * std::sin(angle)}, radius));
    }
    return holes;
}

std::vector<Outline> With(Outline outer, std::vector<Outline> holes)
{
    holes.insert(holes.begin(), std::move(outer));
    return holes;
}

/// The straight outline through the points.
Outline Path(std::vector<Point2> const& points)
{
    Outline path(points.front());
    for (std::size_t i = 1; i < points.size(); ++i) path.LineTo(points[i]);
    return path;
}

class Maker
{
public:
    explicit Maker(NarMetaInfra::ZELProductStructure& model) : model_(model) {}

    Reference Part(wchar_t const* pid, wchar_t const* name)
    {
        return model_.AddReference(ZELReference::Kind::Part, pid, name);
    }

private:
    NarMetaInfra::ZELProductStructure& model_;
};

// ---- Frame

void MakeFrame(Maker maker, MachineParts& parts)
{
    parts.basePlate = maker.Part(L"base-plate", L"Base plate");
    std::vector<Outline> holes;
    for (double x : {-FootX, FootX})
        for (double y : {-FootY, FootY}) holes.push_back(CircularHole({x, y}, 4.5));
    Modeller(parts.basePlate)
        .Colour(Graphite)
        .Extrude(With(RoundedRectangle(BaseLength, BaseWidth, 16), holes), -BaseThickness, -1.5)
        .Extrude(With(RoundedRectangle(BaseLength - 3, BaseWidth - 3, 14.5), holes), -1.5, 0)
        .Finish();

    parts.foot = maker.Part(L"foot", L"Πόδι");
    Modeller(parts.foot)
        .Colour(Rubber)
        .Revolve(Path({{0, -26}, {15, -26}, {17, -23}, {13, -8}, {13, 0}, {0, 0}}))
        .Finish();

    // Seen along the main axis: x is up, the axis runs through the origin.
    parts.stand = maker.Part(L"stand", L"Lagerbock");
    double const bottom = -AxisHeight, half = 62, shoulder = bottom + 14;
    Outline shape({bottom, half});
    shape.LineTo({bottom, -half})
        .LineTo({shoulder, -half})
        .LineTo({FlangeRadius * std::cos(2 * pi / 3), -FlangeRadius * std::sin(2 * pi / 3)})
        .Arc({0, 0}, 4 * pi / 3)
        .LineTo({shoulder, half})
        .LineTo({bottom, half});
    auto standHoles = HoleCircle(FlangeBolts, FlangeBoltCircle, 3.2);
    standHoles.push_back(CircularHole({0, 0}, 30));
    Modeller(parts.stand)
        .Colour(Teal)
        .Extrude(With(shape, standHoles), -14, 0)
        .FaceColour(FaceKind::Top, LightTeal)
        .FaceColour(FaceKind::Bottom, LightTeal)
        .Finish();

    // Stands in the corner of x (along the base) and y (up).
    parts.gusset = maker.Part(L"gusset", L"Rippe");
    Outline rib({0, 0});
    rib.LineTo({46, 0}).LineTo({46, 8}).LineTo({10, 62}).LineTo({0, 62}).LineTo({0, 0});
    Modeller(parts.gusset)
        .Colour(Teal)
        .Extrude(With(rib, {CircularHole({15, 18}, 8)}), 0, 8)
        .Extrude({Circle({33, 7}, 4)}, 8, 9)
        .FaceColour(FaceKind::Top, Yellow)
        .Finish();

    parts.namePlate = maker.Part(L"name-plate", L"Typenschild");
    Modeller(parts.namePlate)
        .Colour(Steel)
        .Extrude(With(RoundedRectangle(64, 20, 3), {CircularHole({-28, 0}, 1.5), CircularHole({28, 0}, 1.5)}),
                 0, 1.2)
        .FaceColour(FaceKind::Top, Yellow)
        .Extrude({RoundedRectangle(40, 2.4, 1)}, 1.2, 1.6)
        .FaceColour(FaceKind::Top, Graphite)
        .Finish();
}

// ---- Gears

void MakeGears(Maker maker, MachineParts& parts)
{
    parts.ringGear = maker.Part(L"ring-gear", L"Hohlrad z=54");
    auto ringHoles = HoleCircle(FlangeBolts, FlangeBoltCircle, 3.2);
    ringHoles.push_back(InnerGearHole(RingTeeth, Module));
    Modeller(parts.ringGear)
        .Colour(DarkSteel)
        .Extrude(With(Circle({0, 0}, FlangeRadius), ringHoles), 0, 20)
        .FaceColour(FaceKind::Top, Steel)
        .Finish();

    parts.sunGear = maker.Part(L"sun-gear", L"Ήλιος z=18");
    Modeller(parts.sunGear)
        .Colour(Brass)
        .Extrude({GearOutline({SunTeeth, Module}), CircularHole({0, 0}, 7)}, 1, 19)
        .Extrude({Circle({0, 0}, 12), CircularHole({0, 0}, 7)}, 19, 22)
        .Finish();

    parts.planetGear = maker.Part(L"planet-gear", L"Сателлит z=18");
    Modeller(parts.planetGear)
        .Colour(BrightSteel)
        .Extrude({GearOutline({PlanetTeeth, Module}), CircularHole({0, 0}, 6)}, 2, 18)
        .FaceColour(FaceKind::Top, Steel)
        .Extrude({Circle({0, 0}, 10), CircularHole({0, 0}, 6)}, 18, 19.5)
        .Finish();

    parts.pin = maker.Part(L"pin", L"Bolzen 12h6");
    Modeller(parts.pin)
        .Colour(BrightSteel)
        .Revolve(Path({{0, 0}, {5, 0}, {6, 1}, {6, 30}, {5, 31}, {0, 31}}))
        .Finish();

    parts.washer = maker.Part(L"washer", L"Scheibe");
    Modeller(parts.washer)
        .Colour(Brass)
        .Revolve(Path({{6.1, 0}, {11, 0}, {11, 1.4}, {6.1, 1.4}, {6.1, 0}}))
        .Finish();

    // Three arms with rounded ends, each about a planet.
    parts.carrier = maker.Part(L"carrier", L"Planetenträger");
    double const end = 13, reach = CentreDistance;
    auto const at = [](double radius, double angle) {
        return Point2{radius * std::cos(angle), radius * std::sin(angle)};
    };
    auto const armSide = [&](double angle, double side) {
        auto const [x, y] = at(reach, angle);
        return Point2{x - side * end * std::sin(angle), y + side * end * std::cos(angle)};
    };
    Outline arms(armSide(0, -1));
    std::vector<Outline> carrierHoles{CircularHole({0, 0}, 9)};
    for (int i = 0; i < 3; ++i) {
        double const angle = 2 * pi * i / 3, next = angle + 2 * pi / 3;
        arms.Arc(at(reach, angle), pi);
        // The hollow between two arms bulges outwards about the centre.
        double const inner = 24, spread = std::asin(end / inner);
        arms.LineTo(at(inner, angle + spread)).Arc({0, 0}, 2 * pi / 3 - 2 * spread).LineTo(armSide(next, -1));
        carrierHoles.push_back(CircularHole(at(reach, angle), 6));
    }
    Modeller(parts.carrier).Colour(Orange).Extrude(With(arms, carrierHoles), 21, 28).Finish();
}

// ---- Shafts, screws, cover

void MakeShafts(Maker maker, MachineParts& parts)
{
    parts.inputShaft = maker.Part(L"input-shaft", L"Antriebswelle");
    Modeller(parts.inputShaft)
        .Colour(Steel)
        .Revolve(Path({{0, -34}, {8, -34}, {9, -33}, {9, -2}, {7, -2}, {7, 22.5}, {6.5, 23}, {0, 23}}))
        .Finish();

    parts.outputShaft = maker.Part(L"output-shaft", L"Abtriebswelle");
    Modeller(parts.outputShaft)
        .Colour(Steel)
        .Revolve(Path({{0, 24}, {9, 24}, {9, 28}, {15, 28}, {15, 33}, {11, 33}, {11, 79}, {10, 80}, {0, 80}}))
        .Finish();

    // A disc coupling: hub and flange with bolt holes.
    parts.coupling = maker.Part(L"coupling", L"연결부");
    auto couplingHoles = HoleCircle(6, 24, 3.2);
    couplingHoles.push_back(CircularHole({0, 0}, 11));
    Modeller(parts.coupling)
        .Colour(Steel)
        .Revolve(Path({{11, 50}, {17, 50}, {18, 51}, {18, 70}, {11, 70}, {11, 50}}))
        .Extrude(With(Circle({0, 0}, 32), couplingHoles), 70, 78)
        .FaceColour(FaceKind::Top, BrightSteel)
        .FaceColour(FaceKind::Side, Red)
        .Finish();

    parts.bolt = maker.Part(L"bolt-m6", L"六角螺栓 M6×28");
    Modeller(parts.bolt)
        .Colour(Zinc)
        .Revolve(Path({{0, -28}, {2.2, -28}, {3, -27.2}, {3, 0}, {6.2, 0}, {6.2, 1.2}, {0, 1.2}}))
        .Extrude({Hexagon(10)}, 1.2, 5)
        .Finish();

    parts.cover = maker.Part(L"cover", L"保护罩");
    Outline dome({FlangeRadius, 20.2});
    dome.LineTo({FlangeRadius, 24}).LineTo({57, 24}).LineTo({57, 30}).Arc({47, 30}, pi / 2);
    dome.LineTo({18, 40}).LineTo({18, 37}).LineTo({47, 37}).Arc({47, 30}, -pi / 2).LineTo({54, 20.2});
    dome.LineTo({FlangeRadius, 20.2});
    Modeller(parts.cover).Colour(Glass).Alpha(64).Revolve(dome).Finish();
}

// ---- Motor

Outline FinnedOutline(double core, double tip, int fins)
{
    double const pitch = 2 * pi / fins, half = 1.3;
    auto const corner = [half](double radius, double angle, double side) {
        double const along = std::sqrt(radius * radius - half * half);
        return Point2{along * std::cos(angle) - side * half * std::sin(angle),
                      along * std::sin(angle) + side * half * std::cos(angle)};
    };
    double const rootGap = pitch - 2 * std::asin(half / core);
    Outline outline(corner(core, 0, -1));
    for (int fin = 0; fin < fins; ++fin) {
        double const angle = fin * pitch;
        outline.LineTo(corner(tip, angle, -1)).LineTo(corner(tip, angle, 1)).LineTo(corner(core, angle, 1));
        outline.Arc({0, 0}, rootGap);
    }
    return outline;
}

void MakeMotor(Maker maker, MachineParts& parts)
{
    parts.adapter = maker.Part(L"adapter", L"Adapterflansch");
    Modeller(parts.adapter)
        .Colour(DarkSteel)
        .Revolve(Path({{20, -34},
                       {46, -34},
                       {46, -30},
                       {34, -26},
                       {34, -20},
                       {50, -18},
                       {50, -14},
                       {20, -14},
                       {20, -34}}))
        .Finish();

    parts.motor = maker.Part(L"motor", L"モーター 0,75 kW");
    Modeller(parts.motor).Colour(Ivory).Extrude({FinnedOutline(40, 48, 28)}, -112, -34).Finish();

    parts.motorCap = maker.Part(L"motor-cap", L"غطاء المحرك");
    Outline cap({0, -132});
    cap.LineTo({34, -132}).Arc({34, -120}, pi / 2).LineTo({46, -112}).LineTo({0, -112});
    Modeller(parts.motorCap).Colour(Teal).Revolve(cap).Finish();

    parts.terminalBox = maker.Part(L"terminal-box", L"Klemmenkasten");
    Modeller(parts.terminalBox)
        .Colour(Graphite)
        .Extrude({RoundedRectangle(34, 40, 5)}, 44, 62)
        .Extrude({RoundedRectangle(36, 42, 6)}, 62, 65)
        .FaceColour(FaceKind::Top, Orange)
        .Finish();

    parts.liftingEye = maker.Part(L"lifting-eye", L"Рым-болт");
    Modeller(parts.liftingEye)
        .Colour(Yellow)
        .Revolve(Circle({11, 18}, 3.5))
        .Revolve(Path({{0, 0}, {9, 0}, {9, 3}, {5, 8}, {5, 14}, {0, 14}}))
        .Finish();

    parts.transportLock = maker.Part(L"transport-lock", L"Transportsicherung 🔒");
    Modeller(parts.transportLock)
        .Colour(Red)
        .Extrude({RoundedRectangle(40, 64, 6), CircularHole({0, 0}, 11.5)}, 42, 48)
        .Finish();
}

} // namespace

MachineParts AddMachineParts(NarMetaInfra::ZELProductStructure& model)
{
    MachineParts parts;
    Maker const maker(model);
    MakeFrame(maker, parts);
    MakeGears(maker, parts);
    MakeShafts(maker, parts);
    MakeMotor(maker, parts);
    parts.sensor = model.AddReference(ZELReference::Kind::Missing, L"speed-sensor", L"Drehzahlsensor");
    parts.sensor->SetStorageName(L"speed-sensor.zel_xml");
    return parts;
}

} // namespace samples
