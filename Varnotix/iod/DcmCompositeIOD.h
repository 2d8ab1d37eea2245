#pragma once

#include "Varnotix/iod/DcmIOD.h"
#include "Varnotix/iod/ScriptSource.h"

/// An information object whose registered modules follow every read and every write.
///
/// After a read the modules take the store's values. Before a write the store takes the modules' elements, all of them
/// or only those that are not empty (see CDcmIOD::EmptyElements). Elements that no module declares stay in the store,
/// so private elements survive.
class VARNOTIX_EXPORT CDcmCompositeIOD : public CDcmIOD
{
    DECLARE_DYNCREATE(CDcmCompositeIOD)

public:
    CDcmCompositeIOD();
    CDcmCompositeIOD(const CDcmCompositeIOD& other);
    ~CDcmCompositeIOD() override;
    CDcmCompositeIOD& operator=(const CDcmCompositeIOD& other);

    void Serialize(CArchive& archive) override;

    /// Builds the object from a script: merges its attributes into the store (as operator<< when REMOVE_EMPTY_ALL is 1,
    /// else as operator+=), anonymises when it says so, and takes pixel data from the files that it names: the pixel
    /// modules of SOURCE_FILE, or else one frame for each JPEG picture and the frames of each DICOM file in one of the
    /// encapsulated syntaxes of rows 5 to 26 of the UID table. Frames so gathered are declared as the syntax of row 5,
    /// whatever they are. Rows and Columns are those that the script gives, or those of the last file.
    ///
    /// Pictures that cannot be loaded are skipped, as are files of other kinds. A DICOM file that cannot be opened
    /// throws CFileException; the attributes are merged by then. ScriptNotes and ScriptSources describe the outcome.
    /// REMOVE_GROUP, REMOVE_EMPTY_GROUP, ANONYMIZE_GROUP and TARGET_FILE are left to the caller, and registered modules
    /// of the attributes keep their values until UpdateIod(false) is called.
    void CreateFromASL(const CStringArray& lines);

    /// The files that the last script named or found, in the order in which they were tried, and what came of each.
    const std::vector<SScriptSource>& ScriptSources() const;

protected:
    /// Registers the object's own modules. Nothing here.
    virtual void InitializeIod();
};
