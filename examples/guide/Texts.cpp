#include "Guide.h"

void Texts()
{
    CDcmIOD object;
    ReadFile("guide.dcm", object);
    CStringArray lines;
    object.Export(lines);
    for (const CString& line : lines)
    {
        if (line.Find("0010,00") == 0)
        {
            std::cout << line.CText() << '\n';
        }
    }
}
