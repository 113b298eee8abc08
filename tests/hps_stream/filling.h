// Fills any value that kits, geometries and definitions may hold with something that is not its default and
// not what was filled in before.
#pragma once
#include "transfer.h"

namespace HPS::scene
{

class Filling
{
public:
    KeyIndex segment;      // what keys in attributes name
    ImageDefinition image; // what textures show

    template <class T> void operator()(T& value)
    {
        if constexpr (std::is_same_v<T, bool>)
            value = true;
        else if constexpr (std::is_arithmetic_v<T>)
            value = static_cast<T>(++count_ % 100 + 1);
        else if constexpr (std::is_enum_v<T>)
            value = static_cast<T>(std::bit_width(enumerators<T>()) - 1); // the last one
        else if constexpr (std::is_same_v<T, UTF8>)
            value = UTF8("text " + std::to_string(++count_));
        else if constexpr (std::is_same_v<T, MatrixKit>)
            value = MatrixKit().Translate(static_cast<float>(++count_), 2, 3);
        else if constexpr (std::is_same_v<T, KeyIndex>)
            value = segment;
        else if constexpr (std::is_same_v<T, ImageDefinition>)
            value = image;
        else if constexpr (std::is_same_v<T, LinePatternKit>)
            value = LinePatternKit().SetParallels(filled<std::vector<LinePatternParallel>>()).SetJoin({});
        else if constexpr (std::is_same_v<T, ComplexMaterial>)
            value = {filled<std::optional<float>>(),
                     std::make_shared<MaterialData const>(filled<MaterialData>())};
        else if constexpr (std::is_same_v<T, AttributeLock::Type>)
            value = AttributeLock::Type::Everything;
        else if constexpr (isA<T, std::shared_ptr>)
            value = std::make_shared<typename T::element_type>(
                filled<std::remove_const_t<typename T::element_type>>());
        else if constexpr (isA<T, std::optional>)
            value = filled<typename T::value_type>();
        else if constexpr (isA<T, std::vector>)
            for (int i = 0; i < 3; ++i) value.push_back(filled<typename T::value_type>());
        else if constexpr (isA<T, std::tuple> || std::is_same_v<T, CubeMapImages>)
            std::apply([this](auto&... part) { ((*this)(part), ...); }, value);
        else if constexpr (AspectTable<T>)
            forEachAspect<T>([&](auto const& aspect) {
                aspect.put(value, filled<typename std::decay_t<decltype(aspect)>::Value>());
            });
        else if constexpr (AspectKit<T>)
            value.edit([this](typename T::Data& data) { (*this)(data); });
        else
            std::apply([this](auto&... part) { ((*this)(part), ...); }, fields(value));
    }
    template <class T> T filled()
    {
        T value{};
        (*this)(value);
        return value;
    }

private:
    int count_ = 0;
};

} // namespace HPS::scene
