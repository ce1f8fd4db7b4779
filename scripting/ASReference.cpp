// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "scripting/ASReference.h"

namespace lumbrix
{

using platform::ObjectSpecifier;
using Kind = ObjectSpecifier::Step::Kind;

ASReference ASReference::with(ObjectSpecifier::Step step) const
{
    ASReference result = *this;
    result.m_object.steps.push_back(step);
    return result;
}

ASReference ASReference::property(platform::FourCharCode code) const
{
    return with({Kind::Property, code});
}

ASReference ASReference::elements(platform::FourCharCode code) const
{
    return with({Kind::Elements, code});
}

ASReference ASReference::at(int index) const
{
    ASReference result = *this;
    ObjectSpecifier::Step& last = result.m_object.steps.back();
    last.kind = Kind::Element;
    last.index = index;
    return result;
}

platform::AppleEventReply ASReference::get() const { return m_events.getItem(m_target, m_object); }

std::vector<ASReference> ASReference::getElements() const
{
    std::vector<ASReference> result;
    for (const ObjectSpecifier& element :
         getItem<std::vector<ObjectSpecifier>>().value_or(std::vector<ObjectSpecifier>()))
        result.emplace_back(m_events, m_target, element);
    return result;
}

void ASReference::send(platform::FourCharCode eventClass, platform::FourCharCode eventID) const
{
    m_events.send(m_target, eventClass, eventID, m_object);
}

} // namespace lumbrix
