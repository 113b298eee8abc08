#include "structure_check.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <unordered_set>

namespace NarMetaInfra
{

namespace
{

/// Finite, affine, and of a volume other than zero (seen against its own size, so that small scales are
/// fine).
bool IsPlacing(Matrix const& m)
{
    if (!std::all_of(m.begin(), m.end(), [](float value) { return std::isfinite(value); })) return false;
    if (m[3] != 0 || m[7] != 0 || m[11] != 0 || m[15] != 1) return false;
    auto const length = [&m](int row) {
        return std::hypot(double(m[row]), double(m[row + 1]), double(m[row + 2]));
    };
    double const size = length(0) * length(4) * length(8);
    double const determinant = double(m[0]) * (double(m[5]) * m[10] - double(m[6]) * m[9]) -
                               double(m[1]) * (double(m[4]) * m[10] - double(m[6]) * m[8]) +
                               double(m[2]) * (double(m[4]) * m[9] - double(m[5]) * m[8]);
    return std::isfinite(size) && size > 0 && std::abs(determinant) > 1e-9 * size;
}

/// A PID like @p wanted that is not yet in use.
std::wstring FreePid(std::wstring wanted, std::wstring const& fallback,
                     std::unordered_set<std::wstring>& used,
                     std::unordered_map<std::wstring, std::size_t>& counters)
{
    if (wanted.empty()) wanted = fallback;
    auto pid = wanted;
    // The counter of each name goes on, so that a million equal names stay a linear affair.
    for (auto& next = counters[wanted]; !used.insert(pid).second;)
        pid = wanted + L"~" + std::to_wstring(++next + 1);
    return pid;
}

template <class Object> std::wstring PidOf(Object const& object)
{
    std::wstring pid;
    object.GetPID(pid);
    return pid;
}

} // namespace

void DropBadPlacings(ZELProductStructure& model, Faults& faults)
{
    auto const clean = [&faults](auto const& list, auto const& remove) {
        for (std::size_t i = list.size(); i-- > 0;) {
            auto const& instance = list[i];
            if (instance->GetReference() && IsPlacing(instance->GetMatrix())) continue;
            faults.Add(instance->GetReference() ? L"an instance without a valid position was left out"
                                                : L"an instance of nothing was left out",
                       instance->GetInstanceName());
            remove(i);
        }
    };
    clean(model.GetRootInstances(), [&](std::size_t i) { model.RemoveRootInstance(i); });
    for (auto const& reference : model.GetReferences())
        clean(reference->GetInstances(), [&](std::size_t i) { reference->RemoveInstance(i); });
}

void ListAllReferences(ZELProductStructure& model)
{
    std::unordered_set<ZELReference const*> listed;
    for (auto const& reference : model.GetReferences()) listed.insert(reference.get());
    auto const add = [&](auto const& instances) {
        for (auto const& instance : instances)
            if (listed.insert(instance->GetReference().get()).second)
                model.AddReference(instance->GetReference());
    };
    add(model.GetRootInstances());
    // The list grows while it is walked.
    for (std::size_t i = 0; i < model.GetReferences().size(); ++i) {
        auto const reference = model.GetReferences()[i];
        add(reference->GetInstances());
    }
}

void BreakCycles(ZELProductStructure& model, Faults& faults)
{
    enum class State { New, Open, Closed };
    struct Step {
        ZELReference* reference;
        std::size_t next = 0;
    };
    std::unordered_map<ZELReference const*, State> states;
    std::vector<Step> stack;
    for (auto const& start : model.GetReferences()) {
        if (states[start.get()] != State::New) continue;
        states[start.get()] = State::Open;
        stack.push_back({start.get()});
        while (!stack.empty()) {
            auto& [reference, next] = stack.back();
            if (next == reference->GetInstancesCount()) {
                states[reference] = State::Closed;
                stack.pop_back();
                continue;
            }
            auto* child = reference->GetInstances()[next]->GetReference().get();
            auto& state = states[child];
            if (state == State::Open) {
                faults.Add(L"an assembly that contains itself was cut", reference->GetReferenceName());
                reference->RemoveInstance(next);
                continue;
            }
            ++next;
            if (state == State::New) {
                state = State::Open;
                stack.push_back({child});
            }
        }
    }
}

void MakeNamesValid(ZELProductStructure& model)
{
    model.SetProductName(ValidName(model.GetProductName()));
    std::unordered_set<std::wstring> used;
    std::unordered_map<std::wstring, std::size_t> counters;
    // Groups of visualisation data and annotations bear the PID of their owner, and change with it.
    auto const rename = [](auto& owner, auto const& annotations, std::wstring const& to) {
        auto const from = PidOf(owner);
        if (from == to) return;
        owner.SetPID(to);
        if (owner.GetSG()) owner.GetSG()->RenameGroup(from, to);
        if (annotations) annotations->RenameOwner(from, to);
    };
    auto const product = FreePid(ValidPid(PidOf(model)), L"product", used, counters);
    rename(model, model.GetPMI(), product);

    auto const settle = [&](ZELInstance& instance, std::wstring const& owner) {
        instance.SetInstanceName(ValidName(instance.GetInstanceName()));
        instance.SetPID(FreePid(ValidPid(PidOf(instance)), owner + L".instance", used, counters));
    };
    // References and instances share one name space: the scene keeps both in one map.
    for (auto const& reference : model.GetReferences()) {
        reference->SetReferenceName(ValidName(reference->GetReferenceName()));
        reference->SetStorageName(ValidName(reference->GetStorageName()));
        rename(*reference, reference->GetPmi(),
               FreePid(ValidPid(PidOf(*reference)), L"reference", used, counters));
        for (auto& body : reference->Bodies()) body.name = ValidName(body.name);
    }
    for (auto const& root : model.GetRootInstances()) settle(*root, product);
    for (auto const& reference : model.GetReferences())
        for (auto const& instance : reference->GetInstances()) settle(*instance, PidOf(*reference));
    model.NoteNewPids();
}

} // namespace NarMetaInfra
