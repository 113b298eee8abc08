#include "machine.h"

#include "machine_parts.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace samples
{

using NarMetaInfra::Matrix;
using NarMetaInfra::ZELReference;
using std::numbers::pi;
using namespace dimension;

namespace
{

float Rounded(double value)
{
    return static_cast<float>(std::round(value * 1e6) / 1e6 + 0.0);
}

Matrix Translation(double x, double y, double z)
{
    return {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, Rounded(x), Rounded(y), Rounded(z), 1};
}

/// A turn about the z axis.
Matrix Turn(double angle)
{
    float const c = Rounded(std::cos(angle)), s = Rounded(std::sin(angle));
    return {c, s, 0, 0, Rounded(-s), c, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
}

/// Rows are where the axes x, y and z go.
Matrix Axes(std::array<float, 3> x, std::array<float, 3> y, std::array<float, 3> z,
            std::array<double, 3> origin)
{
    return {x[0],
            x[1],
            x[2],
            0,
            y[0],
            y[1],
            y[2],
            0,
            z[0],
            z[1],
            z[2],
            0,
            Rounded(origin[0]),
            Rounded(origin[1]),
            Rounded(origin[2]),
            1};
}

Matrix Scaled(Matrix matrix, float factor)
{
    for (int row = 0; row < 12; row += 4)
        std::for_each_n(matrix.begin() + row, 3, [factor](float& v) { v *= factor; });
    return matrix;
}

/// From the frame of the gear unit (x up, z along the main axis) to the one of the base (x along it, z up).
Matrix AlongBase()
{
    return Axes({0, 0, 1}, {0, -1, 0}, {1, 0, 0}, {40, 0, AxisHeight});
}

/// Adds instances to one assembly, with PIDs made of its own and their names.
class Assembly
{
public:
    Assembly(NarMetaInfra::ZELProductStructure& model, wchar_t const* pid, wchar_t const* name)
        : pid_(pid), reference_(model.AddReference(ZELReference::Kind::Assembly, pid, name))
    {
    }

    std::shared_ptr<NarMetaInfra::ZELInstance> Add(Reference const& child, std::wstring const& name,
                                                   Matrix const& matrix = NarMetaInfra::IdentityMatrix)
    {
        std::wstring childPid;
        child->GetPID(childPid);
        auto const number = std::to_wstring(reference_->GetInstancesCount() + 1);
        auto instance = reference_->AddInstance(child, pid_ + L"." + childPid + L"." + number, name);
        instance->SetTransform(matrix);
        return instance;
    }
    Reference const& Get() const { return reference_; }

private:
    std::wstring pid_;
    Reference reference_;
};

std::wstring Numbered(wchar_t const* name, int number)
{
    return std::wstring(name) + L" " + std::to_wstring(number);
}

Reference MakeFrame(NarMetaInfra::ZELProductStructure& model, MachineParts const& parts)
{
    Assembly foot(model, L"foot-set", L"Fuß mit Schraube");
    foot.Add(parts.foot, L"Πόδι", Translation(0, 0, -BaseThickness));
    foot.Add(parts.bolt, L"螺栓", Scaled(Translation(0, 0, 0), 1.25f));

    Assembly frame(model, L"frame", L"Gestell");
    frame.Add(parts.basePlate, L"Grundplatte");
    int number = 0;
    for (double x : {-FootX, FootX})
        for (double y : {-FootY, FootY})
            frame.Add(foot.Get(), Numbered(L"Fuß", ++number), Translation(x, y, 0));
    // The ribs stand behind the stand; the second is the mirror image of the first.
    frame.Add(parts.gusset, L"Rippe links", Axes({-1, 0, 0}, {0, 0, 1}, {0, 1, 0}, {26, 40, 0}));
    frame.Add(parts.gusset, L"Rippe rechts (gespiegelt)",
              Axes({-1, 0, 0}, {0, 0, 1}, {0, -1, 0}, {26, -40, 0}));
    frame.Add(parts.stand, L"Lagerbock", AlongBase());
    frame.Add(parts.namePlate, L"Typenschild", Axes({0, 1, 0}, {-1, 0, 0}, {0, 0, 1}, {94, 0, 0}));
    return frame.Get();
}

Reference MakeGearUnit(NarMetaInfra::ZELProductStructure& model, MachineParts const& parts)
{
    Assembly planet(model, L"planet-set", L"Planet komplett");
    planet.Add(parts.planetGear, L"Сателлит", Turn(pi / PlanetTeeth));
    planet.Add(parts.pin, L"Bolzen", Translation(0, 0, -2));
    planet.Add(parts.washer, L"Scheibe hinten", Translation(0, 0, 0.6));
    planet.Add(parts.washer, L"Scheibe vorn", Translation(0, 0, 19.6));

    Assembly unit(model, L"gear-unit", L"⚙️ Planetengetriebe i=4");
    unit.Add(parts.ringGear, L"Hohlrad");
    unit.Add(parts.sunGear, L"Ήλιος (Sonnenrad)");
    unit.Add(parts.inputShaft, L"Antriebswelle");
    wchar_t const* const names[] = {L"Πλανήτης 1", L"Планета 2", L"كوكب ٣"};
    for (int i = 0; i < 3; ++i) {
        double const angle = 2 * pi * i / 3;
        auto matrix = Turn(angle);
        matrix[12] = Rounded(CentreDistance * std::cos(angle));
        matrix[13] = Rounded(CentreDistance * std::sin(angle));
        auto const instance = unit.Add(planet.Get(), names[i], matrix);
        // One planet in another colour shows how the set turns.
        if (i == 0) instance->SetRGBColor(92, 178, 222);
    }
    unit.Add(parts.carrier, L"Planetenträger");
    unit.Add(parts.outputShaft, L"Abtriebswelle");
    unit.Add(parts.coupling, L"연결부");
    unit.Add(parts.cover, L"保护罩 (durchsichtig)");
    for (int i = 0; i < FlangeBolts; ++i) {
        double const angle = 2 * pi * i / FlangeBolts;
        unit.Add(parts.bolt, Numbered(L"螺栓", i + 1),
                 Translation(FlangeBoltCircle * std::cos(angle), FlangeBoltCircle * std::sin(angle), 24));
    }
    unit.Add(parts.transportLock, L"Transportsicherung 🔒")->SetHidden(true);
    return unit.Get();
}

Reference MakeMotorUnit(NarMetaInfra::ZELProductStructure& model, MachineParts const& parts)
{
    Assembly unit(model, L"motor-unit", L"モーターユニット");
    unit.Add(parts.adapter, L"Adapterflansch");
    unit.Add(parts.motor, L"モーター");
    unit.Add(parts.motorCap, L"غطاء المحرك");
    unit.Add(parts.terminalBox, L"Klemmenkasten", Axes({0, 0, 1}, {0, -1, 0}, {1, 0, 0}, {0, 0, -74}));
    unit.Add(parts.liftingEye, L"Рым-болт", Axes({0, 0, 1}, {0, -1, 0}, {1, 0, 0}, {46, 0, -104}))
        ->SetSuppressed(true);
    unit.Add(parts.sensor, L"Drehzahlsensor", Translation(0, 48, -24));
    return unit.Get();
}

} // namespace

void BuildMachine(NarMetaInfra::ZELProductStructure& model)
{
    model.SetPID(L"planetary-drive");
    model.SetProductName(L"Planetary drive · Планетарный привод · 行星传动");
    auto information = std::make_shared<NarMetaInfra::ZELDocumentInformation>();
    information->Add(L"Made by", L"zel_make_samples");
    information->Add(L"Unit", L"mm");
    model.SetDocumentInformation(information);

    auto const parts = AddMachineParts(model);
    auto const add = [&model](Reference const& reference, wchar_t const* pid, wchar_t const* name,
                              Matrix const& matrix) {
        model.AddRootInstance(reference, pid, name)->SetTransform(matrix);
    };
    add(MakeFrame(model, parts), L"planetary-drive.frame", L"Gestell", NarMetaInfra::IdentityMatrix);
    add(MakeMotorUnit(model, parts), L"planetary-drive.motor-unit", L"モーターユニット", AlongBase());
    add(MakeGearUnit(model, parts), L"planetary-drive.gear-unit", L"⚙️ Planetengetriebe", AlongBase());
}

} // namespace samples
