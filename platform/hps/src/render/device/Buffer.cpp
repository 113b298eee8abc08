#include "Buffer.h"
#include "Device.h"
#include <epoxy/gl.h>

namespace HPS::render
{

Buffer::~Buffer()
{
    if (name_ != 0 && Device::instance().makeCurrent()) glDeleteBuffers(1, &name_);
}

void Buffer::create()
{
    if (name_ == 0) glCreateBuffers(1, &name_);
}

void Buffer::fillBytes(std::span<std::byte const> data, std::size_t capacity)
{
    create();
    bool const exact = capacity == data.size();
    glNamedBufferData(name_, GLsizeiptr(capacity), exact ? data.data() : nullptr, GL_DYNAMIC_DRAW);
    if (!exact && !data.empty()) patchBytes(0, data);
}

void Buffer::patchBytes(std::size_t offset, std::span<std::byte const> data)
{
    glNamedBufferSubData(name_, GLintptr(offset), GLsizeiptr(data.size()), data.data());
}

} // namespace HPS::render
