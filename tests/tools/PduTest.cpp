#include "ToolRunner.h"

#include <array>

namespace
{

using Pdu = ToolTest;

/// A request with one context and a maximum length, low byte first; then data, a release and an abort.
const std::string kCapture = "# captured on the way in\r\n"
                             "01 00 00:00:00:67 0x00,0x01 0000\n"
                             "414E592D534350202020202020202020 4543484F534355000000000000000000\n"
                             "0000000000000000000000000000000000000000000000000000000000000000\n"
                             "20000013 01000000 30000002 3132 40000005 312E3200AB\n"
                             "50000008 51000004 00400000\n"
                             "04 00 00000008 00000004 01 03 CAFE\n"
                             "05 00 00000004 00000000\n"
                             "07 00 00000004 0000 02 06\n";

std::string FromHexadecimal(const std::string& digits)
{
    std::string bytes;
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2)
    {
        bytes += static_cast<char>(std::stoi(digits.substr(i, 2), nullptr, 16));
    }
    return bytes;
}

/// The bytes that a listing of fields shows, and the offsets at which it does so.
std::string BytesShown(const std::string& listing)
{
    std::string bytes;
    std::istringstream lines(listing);
    for (std::string line; std::getline(lines, line);)
    {
        if (line.starts_with('#'))
        {
            continue;
        }
        EXPECT_EQ(std::stoul(line), bytes.size()) << line;
        std::string digits = line.substr(10, 47);
        std::erase(digits, ' ');
        bytes += FromHexadecimal(digits);
    }
    return bytes;
}

std::string Raw()
{
    std::string digits = kCapture.substr(kCapture.find('\n') + 1);
    for (std::size_t prefix = 0; (prefix = digits.find("0x")) != std::string::npos;)
    {
        digits.erase(prefix, 2);
    }
    std::erase_if(digits, [](char letter) { return std::string(" ,:\r\n").find(letter) != std::string::npos; });
    return FromHexadecimal(digits);
}

} // namespace

TEST_F(Pdu, DumpsEachPduOfAStreamOfDigitsOrBytes)
{
    Write("capture.txt", kCapture);
    Write("capture.bin", Raw());
    const SRun text = Expect(0, "pdu capture.txt");
    EXPECT_EQ(text.err, "");
    EXPECT_TRUE(Holds(text.out, "# PDU 1 at offset 0, 109 bytes: A-ASSOCIATE-RQ\nPDU Type [1]\nPDU Length [103]\n",
                      "Called AE [ANY-SCP         ]\nCalling AE [ECHOSCU]\n", "UDI [(51h) (0,64,0,0,)]\n",
                      "# PDU 2 at offset 109, 14 bytes: P-DATA-TF\n", "PDV [(1) (3) (2)]\n",
                      "# PDU 3 at offset 123, 10 bytes: A-RELEASE-RQ\n", "# PDU 4 at offset 133, 10 bytes: A-ABORT\n",
                      "Source [2]\nReason [6]\n"));
    EXPECT_EQ(Run("pdu capture.bin").out, text.out);
    EXPECT_EQ(Run("pdu - <capture.bin").out, text.out);
    EXPECT_EQ(Run("pdu <capture.txt").out, text.out);
}

TEST_F(Pdu, FieldsShowEveryByteWithItsOffsetAndMeaning)
{
    Write("capture.txt", kCapture);
    const std::string listing = Expect(0, "pdu --fields capture.txt").out;
    EXPECT_EQ(BytesShown(listing), Raw());
    EXPECT_TRUE(
        Holds(listing, "       0  01                                               PDU type: A-ASSOCIATE-RQ (01H)\n",
              "called AE title: 'ANY-SCP         '\n", "calling AE title: 'ECHOSCU'\n", "context ID: 1\n",
              "sub-item type: abstract syntax (30H)\n", "value: '1.2\\x00\\xAB'\n",
              "value: 4194304 bytes; low byte first it would be 16384\n", "message control: command, last fragment\n",
              "     121  ca fe                                            data: 2 bytes\n",
              "reason: invalid PDU parameter value (06H)\n"));
}

TEST_F(Pdu, BytesThatDoNotFitAreShownAsUnreadWithTheirOffset)
{
    const std::array<const char*, 3> cases[] = {
        {"0500000000040000000007", "      10  07 ", "PDU 2: unread from offset 10 on, 1 byte: too short for a PDU"},
        {"0300000000040001", "       6  00 01 ", "from offset 6 on, 2 bytes: too short for result"},
        {"040000000006000000090103", "       6  00 00 00 09 01 03 ", "the data value runs past the end"},
        {"0400000000FF00", "       6  00 ", "the PDU length runs past the end"},
        {"48545450000000000500", "       6  00 00 05 00", "the PDU length runs past the end"}};
    for (const auto& [digits, field, reason] : cases)
    {
        Write("in.txt", digits);
        const SRun run = Expect(20, "pdu --fields in.txt", reason);
        EXPECT_EQ(BytesShown(run.out), FromHexadecimal(digits));
        EXPECT_TRUE(Holds(run.out, "unread bytes: ", field));
    }
}

TEST_F(Pdu, UnknownItemsAreShownAsSkipped)
{
    Write("in.txt", "01 00 0000004E 0001 " + std::string(132, '0') + " 77 00 0002 EEEE 50000000");
    EXPECT_TRUE(Holds(Expect(0, "pdu --fields in.txt").out,
                      "      74  77 00 00 02 ee ee                                "
                      "skipped: no known item type\n      80  50 "));
}

TEST_F(Pdu, NothingButDigitsMakesTextAndMessagesNameThePlace)
{
    for (const auto& [text, message] :
         {std::pair("01 0\n", "offset 3, line 1"), {"0100\n# x\n0g\n", "offset 9, line 3"}, {" \n", "it is empty"}})
    {
        Write("in.txt", text);
        EXPECT_EQ(Expect(20, "pdu in.txt", message).out, "");
    }
}
