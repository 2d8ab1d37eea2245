/// Values that take the place of old ones.
#pragma once

#include "Varnotix/Varnotix.h"

#include <string>
#include <string_view>

/// The dummy value of names, identifiers and descriptions.
inline constexpr std::string_view kDummyWord = "ANONYMIZED";

/// The VR of the element, or the dictionary's where the stream left it open (UN).
int VrOf(const CDcmElement& element);

/// True for VRs whose values are texts that a person reads or that name a person or a thing.
bool HoldsWords(const CDcmElement& element);

/// Sets the value from text, padded to an even length as the VR demands. No byte of the old value stays; for an empty
/// text the element stays without value, and a sequence without items.
void SetValue(CDcmElement& element, std::string_view text);

/// A dummy value of the element's VR, as many times as its attribute demands: texts say so, numbers are 0, dates are
/// in 1900. Not for sequences.
std::string DummyText(const CDcmElement& element);
