// Data files and text documents.

#include "Seeds.h"

namespace
{

const std::string kPatient = "0010,0010,PN,1,Patient's Name,[A^B,]\n0010,0020,LO,1,Patient ID,[77,]\n"
                             "0028,0002,US,1,Samples per Pixel,[1,]\n";

}

void MakeTextSeeds()
{
    using namespace std::string_literals;
    const auto dictionary = [](const char* name, const std::string& text) { PutSeed("dictionary", name, text); };
    dictionary("lines", "# a comment\n0008,0005,CS,-1,Specific Character Set\r\n0010,0010,PN,1,Patient's Name\n"
                        "\n 7fe0 , 0010 , obow , 1 , Pixel Data , rest\nFFFE,E000,none,1,Item");
    dictionary("groups", "50xx,0005,usss,1,Curve Dimensions\n60XX,3000,OBOW,1,Overlay Data\n6002,3000,OW,1,One\n");
    dictionary("malformed", "  \t\n0018\nzz\n0018,0010,QQ,3\n0018,0010,LO,99999999999\n,,,\n,#,x\n0010 0020,LO,-5,a\n");
    dictionary("empty_lines", "\n\r\n\r\r\n\n#\n");
    dictionary("blanks_in_tags", "A   B   C   D   E,0,LO,1,cut elsewhere at each load\n6 0x,x,x,1,\n");
    dictionary("zero_bytes", "0010,0020,LO,1,a\0b\n0010\0,0021,L\0O,1,c\n"s);

    const auto uids = [](const char* name, const std::string& text) { PutSeed("uid_table", name, text); };
    uids("lines", "1.2.840.10008.1.1 Verification SOP Class\n1.2.840.10008.1.2 Implicit VR\r\n1.2.3\n");
    uids("repeated", "9.1 First\n\n9.2\r\n # no comment\n9.1 Again\n");
    uids("blanks", " 9.1 led by a blank\n9.2  two\n\t9.3\ttab\n \n9.4 ");
    uids("zero_bytes", "9.1\0 a\n9.1\0b c\0d\n\0\n"s);
    uids("no_end", "1.2.840.10008.1.2.5 RLE");

    const auto asl = [](const char* name, const std::string& text) { PutSeed("asl", name, text); };
    asl("values", "#ATTRIBUTE_SET_BEGIN\n0008,0005,CS,-1,Specific Character Set,[ISO_IR 100,]\n"
                  "0008,0008,CS,-1,Image Type,[A,B,,C,]\n0010,0010,PN,1,Patient's Name,[A^B]\n"
                  "0028,0010,US,1,Rows,[64,]\n0018,6020,SL,1,Reference Pixel X0,[-7,]\n"
                  "0018,602c,FD,1,Physical Delta X,[0.5,]\n0018,9087,FD,1,Diffusion b-value,[1e300]\n"
                  "0028,0106,US,1,Smallest Image Pixel Value,[70000,]\n0028,0009,AT,-1,Pointer,[24,4195,]\n"
                  "#ATTRIBUTE_SET_END\n");
    asl("sequence", "0008,1140,SQ,1,Referenced Image Sequence\n#SEQUENCE_BEGIN\n"
                    "0008,1150,UI,1,Referenced SOP Class UID,[1.2,]\n0008,1140,SQ,1,Inner\n#SEQUENCE_BEGIN\n"
                    "0008,1155,UI,1,Referenced SOP Instance UID,[1.3,]\n#SEQUENCE_END\n#SEQUENCE_END\n"
                    "0010,0020,LO,1,Patient ID,[77,]\n");
    asl("private",
        "0009,0010,LO,1,Private Data Element,[MAKER,]\n0009,1001,FL,-1,x,[1.5,-2.25e-3,inf,nan]\n"
        "0009,1002,OB,1,x,[1,2,255]\n0009,1003,SS,-1,,[-1,32768]\n0009,1004,OW,1,x,[1,2]\n0009,ZZZZ,LO,1,x,[a]\n");
    asl("commands", "; a remark\r\n#SOURCE_FILE=c:\\a.dcm\r\n#REMOVE_EMPTY_ALL=1\r\n#ANONYMIZE_55=1,none\r\n"
                    "#PIXEL_DATA_ROWS=-4\r\n#REMOVE_GROUP=0010,0012\r\n#no such\r\n#=\r\n");
    asl("unclosed",
        "0010,0010,PN,1,Patient's Name,[A^B\n0010,0020\n,,,,,\n[]\n0008,1140,SQ,1,S\n#SEQUENCE_BEGIN\n0008,0100");
    asl("stray_ends", "#SEQUENCE_END\n0010,0020,LO,1,Patient ID,[77,]\n");
    std::string deep;
    for (int level = 0; level < 66; ++level)
    {
        deep += "0008,1140,SQ\n#SEQUENCE_BEGIN\n";
    }
    asl("deep", deep + "0008,0100,SH,1,Code Value,[1,]\n");
    asl("zero_bytes", "0010,0020,LO,1,Patient ID,[7\0a,]\n\0\n0010,0010,PN,1,x,[\xFF\xFE,]\n"s);

    // The names are those of the files that the target makes.
    const auto script = [&](const char* name, const std::string& text) { PutSeed("script", name, text + kPatient); };
    const std::string file = "#PIXEL_DATA_FILE=";
    const std::string folder = "#PIXEL_DATA_DIR=";
    script("pictures", file + "picture.jpg\n" + file + "object.dcm\n" + file + "picture.jpg\n");
    script("searches",
           folder + "*.jpg\n" + folder + ".\\*.dcm\n" + folder + "?\n#PIXEL_DATA_ROWS=-4\n#PIXEL_DATA_COLS=7\n");
    script("source", "#SOURCE_FILE=object.dcm\n#PIXEL_DATA_FILE=picture.jpg\n");
    script("unusable", file + "broken.jpg\n" + file + "text.txt\n" + file + "PICTURE.JPG\n#PIXEL_DATA_ROWS=x\n");
    script("missing", "#SOURCE_FILE=missing.jpg\n");
    script("folders", file + "folder\n" + file + ".\n" + folder + "folder\n#TARGET_FILE=out.dcm\n");
    script("separator_as_value", "0020,0020,CS,2,Patient Orientation,[A,\\,]\n");
    script("items", "0008,1140,SQ,1,,[]\n#SEQUENCE_BEGIN\n0008,1155,UI,1,,[1.1,]\n#ITEM=2\n0040,a170,SQ,1,,[]\n"
                    "#SEQUENCE_BEGIN\n#ITEM=1\n#ITEM=2\n0008,0100,SH,1,,[A,]\n#SEQUENCE_END\n#ITEM=3\n#ITEM=9\n"
                    "#ITEM=-1\n#SEQUENCE_END\n#ITEM=1\n");
    script("merged", "#REMOVE_EMPTY_ALL=1\n#ANONYMIZE_55=1,none\n#REMOVE_GROUP=0010\n#REMOVE_EMPTY_GROUP=0008\n");
}
