/// What the targets share that read objects.
#pragma once

#include "Promise.h"
#include "Varnotix/Varnotix.h"

#include <cmath>

inline const char* const kSyntaxUids[] = {"1.2.840.10008.1.2", "1.2.840.10008.1.2.1", "1.2.840.10008.1.2.2"};

/// The shortest element has a header of 8 bytes, so nothing can make more elements than that from a stream.
inline constexpr int kShortestElement = 8;

/// Takes back what a run has taught the dictionary: no run may depend on the ones before it.
struct SFreshDictionary
{
    SFreshDictionary() = default;
    SFreshDictionary(const SFreshDictionary&) = delete;
    SFreshDictionary& operator=(const SFreshDictionary&) = delete;
    ~SFreshDictionary() { CDcmRegistry::Global().ForgetPrivateEntries(); }
};

/// What a set holds that keeps a second reading from giving the same set: an empty sequence, which takes the element
/// after it; a second group length of a group, which stays when the first is remade; a delimiter that a stream gave a
/// VR; an element to which a script gave the VR of delimiters; pixel data of neither OB nor OW, whose frames the
/// classic rules do not write; a value with a backslash, which separates values; a number that equals nothing.
inline bool ReadsOtherwise(const CDcmElementSet& set)
{
    const auto isSeparated = [](const CString& text) { return text.Find('\\') >= 0; };
    const auto isNan = [](double number) { return std::isnan(number); };
    for (int i = 0; i < set.GetCount(); ++i)
    {
        const CDcmElement& element = *set.GetAt(i);
        const CDcmElementSet* items = element.Items();
        const CStringArray* texts = element.Texts();
        const CFloatArray* floats = element.Floats();
        const CDoubleArray* doubles = element.Doubles();
        if ((items != nullptr && (items->IsEmpty() || ReadsOtherwise(*items))) ||
            (element.Element() == 0 && set.Find(element) != &element) || element.Group() == 0xFFFE ||
            element.Vr() == VR_NONE ||
            (element.Frames() != nullptr && element.Vr() != VR_OB && element.Vr() != VR_OW) ||
            (texts != nullptr && element.Vm() != 1 && std::any_of(texts->begin(), texts->end(), isSeparated)) ||
            (floats != nullptr && std::any_of(floats->begin(), floats->end(), isNan)) ||
            (doubles != nullptr && std::any_of(doubles->begin(), doubles->end(), isNan)))
        {
            return true;
        }
    }
    return false;
}

/// Asks every element for its value in each form, as a host that shows objects does.
inline void AskForValues(const CDcmElementSet& set)
{
    CObList frames;
    for (int i = 0; i < set.GetCount(); ++i)
    {
        CDcmElement& element = *set.GetAt(i);
        Promise(element.JoinedText().GetLength() >= 0, "a text has a length");
        static_cast<void>(element.Words());
        static_cast<void>(element.Integers());
        static_cast<void>(element.Bytes());
        static_cast<void>(element.IsEmptyValue());
        element.GetFrames(frames);
        Promise(element.Frames() == nullptr || frames.GetCount() == element.Frames()->GetCount(),
                "each frame is handed out");
        if (const CDcmElementSet* items = element.Items())
        {
            AskForValues(*items);
        }
    }
}

/// A copy of the object whose meta information names nothing but the syntax in which it is to be written, and is at
/// the beginning: elements of command groups would come before it.
inline CDcmIOD InSyntax(const CDcmIOD& object, const char* uid)
{
    CDcmIOD copy(object);
    CDcmElementSet& store = copy.ElementStore();
    for (int i = store.GetCount(); i-- > 0;)
    {
        if (store.GetAt(i)->Group() <= 0x0002)
        {
            store.Remove(store.GetAt(i));
        }
    }
    store.AddKnown("0002", "0010")->AddText(uid);
    return copy;
}

/// The object, written in a syntax and read again, is from then on written and read as the same.
inline void PromiseRoundTrip(const CDcmIOD& object, const char* uid)
{
    CDcmIOD first(InSyntax(object, uid));
    if (first.GetCount() == 1 || ReadsOtherwise(first.ElementStore()))
    {
        return; // Only meta information: not an object.
    }
    CByteArray written;
    first.ExportFileFormat(written);
    CDcmIOD second;
    second.Import(written);
    if (ReadsOtherwise(first.ElementStore()) || ReadsOtherwise(second.ElementStore()))
    {
        return;
    }
    Promise(second.GetCount() > 0, "what was written is readable");
    CByteArray rewritten;
    second.ExportFileFormat(rewritten);
    Promise(Same(written, rewritten), "what was written is read and written as the same bytes");
}
