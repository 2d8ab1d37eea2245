// example_guide: runs the code of docs/host-guide.md, chapter by chapter, in the current folder.

#include "Guide.h"

int main()
try
{
    InitDicomDLL();
    if (CDcmRegistry::Global().DictionarySize() == 0)
    {
        std::cerr << "dictionary.txt was not found; name its folder in VARNOTIX_DATA\n";
        return 20;
    }
    Making();
    Reading();
    Editing();
    Writing();
    Frames();
    Sequences();
    Texts();
    Scripts();
    Anonymising();
    Deidentifying();
    Associations();
    Failures();
    Threads();
    return 0;
}
catch (const CException& failure)
{
    std::cerr << failure.GetErrorMessage().CText() << '\n';
    return 20;
}
catch (const std::exception& failure)
{
    std::cerr << failure.what() << '\n';
    return 20;
}
