#include "host/Host.h"

#include <algorithm>

namespace quillmar {

void DataObject::SetData(const Variant& data, int16_t format) {
    const auto it
        = std::find_if(m_formats.begin(), m_formats.end(), [&](const auto& f) { return f.first == format; });
    if (it != m_formats.end())
        it->second = data;
    else
        m_formats.emplace_back(format, data);
}

Variant DataObject::GetData(int16_t format) const {
    const auto it
        = std::find_if(m_formats.begin(), m_formats.end(), [&](const auto& f) { return f.first == format; });
    return it == m_formats.end() ? Variant() : it->second;
}

bool DataObject::GetFormat(int16_t format) const {
    return std::any_of(m_formats.begin(), m_formats.end(), [&](const auto& f) { return f.first == format; });
}

} // namespace quillmar
