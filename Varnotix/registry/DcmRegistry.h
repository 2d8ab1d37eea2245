/// The data dictionary, the UID table and the photometric names.
#pragma once

#include "Varnotix/platform/Arrays.h"
#include "Varnotix/platform/Maps.h"
#include "Varnotix/registry/DcmEntry.h"
#include "Varnotix/registry/Tag.h"

class CEntryTable;

/// The dictionary layer of one registry object: private entries learned during the decode that is in progress.
class CDcmRegistryPrivate;

/// The process-wide registry of dictionary entries, UIDs and photometric interpretations.
///
/// All tables but one are shared by every instance. The first instance builds them; the library makes one instance
/// when it is loaded, before any client call, and keeps it until it is unloaded. A tag is searched in the public
/// dictionary, then among the private entries learned by earlier reads, then among those of the read in progress.
///
/// The tables are read from "dictionary.txt" and "UidTable.txt". Each file is searched in the current directory,
/// then in the folder named by the environment variable VARNOTIX_DATA, then in the folder of the loaded library, then
/// in the installed share folder. A missing file leaves its table empty and is not reported: see DictionarySize and
/// UidDictionarySize.
///
/// Any thread may use a registry at any time. Tags of the public dictionary are found without a lock.
class VARNOTIX_EXPORT CDcmRegistry : public CObject
{
    DECLARE_DYNCREATE(CDcmRegistry)

public:
    CDcmRegistry();
    ~CDcmRegistry() override;
    CDcmRegistry(const CDcmRegistry&) = delete;
    CDcmRegistry& operator=(const CDcmRegistry&) = delete;

    /// The library's own instance, which the element classes and the stream decoder consult.
    static CDcmRegistry& Global();

    /// The entry of a tag given as two hexadecimal texts ("0010", "0020"; "60xx" for a repeating group), in any case
    /// and with blanks around. Null for a tag that no layer knows.
    const CDcmEntry* LookUpDictionary(const CString& group, const CString& element) const;

    /// Number of entries in the public dictionary.
    int DictionarySize() const;

    /// Appends one line per entry of the public dictionary: group, element, VR, multiplicity, name, and "ret" for a
    /// retired one, joined by commas. A repeating group is written with 00 for its low byte.
    void ExportPublicDictionary(CStringArray& lines) const;

    /// Number of rows in the UID table.
    int UidDictionarySize() const;

    /// The UID in a row of the UID table; empty for an index outside it. The thread's next call
    /// overwrites the result.
    const CString& UidString(int index) const;

    /// The name that the UID table gives in a row; empty for an index outside it.
    CString UidName(int index) const;

    /// The row of a UID, blanks around it ignored; the last row where several match. -1 when none does.
    int UidEnum(const CString& uid) const;

    /// The upper-case name of a photometric interpretation (PS3.3 C.7.6.3.1.2) by its number, 0 MONOCHROME1 to
    /// 11 CMYK; empty for any other number. The thread's next call overwrites the result.
    const CString& PhotoMetricString(int value) const;

    /// The number of a photometric interpretation by name, without regard to case and blanks around; -1 for others.
    int PhotoMetricEnum(const CString& name) const;

    /// The entry under a dictionary key (eight hexadecimal digits, XX for a repeating group's low byte), or null.
    const CDcmEntry* LookUpKey(const CString& key) const;

    /// The entry of a tag, or null. Every group whose high byte is 60 or 50 is looked up as that repeating group.
    const CDcmEntry* LookUpTag(int group, int element) const;
    const CDcmEntry* LookUpTag(DWORD tag) const
    {
        return LookUpTag(Varnotix::Tag::Group(tag), Varnotix::Tag::Element(tag));
    }

    /// Enters a private tag into this instance's dictionary, under the name "Private Data Element".
    /// @param vr VR text; OB is stored when it names no VR.
    /// @return the entry of the tag; null for an even group, which is never private.
    const CDcmEntry* AddPrivateEntry(int group, int element, const CString& vr, int multiplicity);

    /// As AddPrivateEntry, into the dictionary that all instances share and that outlives a read.
    const CDcmEntry* AddSharedPrivateEntry(int group, int element, const CString& vr, int multiplicity);

    /// Moves this instance's private entries into the shared dictionary, except for tags that it has already.
    void PromotePrivateEntries();

    /// Discards this instance's private entries.
    void ClearPrivateEntries();

    /// Discards every private tag that reads, scripts and hosts have entered, so that the next read by the classic
    /// stream rules meets a dictionary as after loading. Elements made before stay as they are: they keep VR,
    /// multiplicity and name. Elements made afterwards by tag only, and modules that declare such a tag, no longer find
    /// it.
    void ForgetPrivateEntries();

    /// The entry of a tag in the dictionary file, or null. Private tags that reads have entered are not considered.
    const CDcmEntry* LookUpPublicTag(DWORD tag) const;

    /// The entry that elements of tags without a dictionary entry refer to when a read by the standard stream rules
    /// makes them: the name "Private Data Element", and as many values as the VR can hold. It lives as long as the
    /// library is loaded.
    /// @param vr VR code (see EVr); any other number gives VR_UNKNOWN.
    static const CDcmEntry& UnlistedEntry(int vr);

    /// The path from which "dictionary.txt" was loaded; empty when it was not found.
    static const CString& DictionaryPath();

    /// The path from which "UidTable.txt" was loaded; empty when it was not found.
    static const CString& UidTablePath();

private:
    CDcmRegistryPrivate* m_private;
};
