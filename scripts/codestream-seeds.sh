#!/usr/bin/env bash
# codestream-seeds.sh FOLDER: writes the seeds of the fuzz target "codestream" to the folder: small pictures, compressed
# by other tools in every way that the tool decodes. It needs dcmtk, libgdcm-tools and python3-pydicom.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

[ $# -eq 1 ] || die "usage: codestream-seeds.sh FOLDER"
mkdir -p "$1"
folder=$(realpath "$1")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

# picture NAME BITS SAMPLES: an uncompressed object of 17 columns and 13 rows.
# seed KIND NAME: the first frame of packed.dcm, after the bytes that the target wants.
cat >steps.py <<'PYTHON'
import sys
import pydicom
from pydicom.dataset import Dataset, FileMetaDataset
from pydicom.encaps import generate_pixel_data_frame
from pydicom.uid import ExplicitVRLittleEndian, generate_uid

COLUMNS, ROWS = 17, 13
if sys.argv[1] == "picture":
    name, bits, samples = sys.argv[2], int(sys.argv[3]), int(sys.argv[4])
    dataset = Dataset()
    dataset.file_meta = FileMetaDataset()
    dataset.file_meta.TransferSyntaxUID = ExplicitVRLittleEndian
    dataset.is_little_endian, dataset.is_implicit_VR = True, False
    dataset.SOPClassUID = dataset.file_meta.MediaStorageSOPClassUID = "1.2.840.10008.5.1.4.1.1.7"
    dataset.SOPInstanceUID = dataset.file_meta.MediaStorageSOPInstanceUID = generate_uid("2.25.")
    dataset.Rows, dataset.Columns, dataset.SamplesPerPixel = ROWS, COLUMNS, samples
    dataset.PhotometricInterpretation = "RGB" if samples == 3 else "MONOCHROME2"
    if samples == 3:
        dataset.PlanarConfiguration = 0
    allocated = 8 if bits == 8 else 16
    dataset.BitsAllocated, dataset.BitsStored, dataset.HighBit = allocated, bits, bits - 1
    dataset.PixelRepresentation = 0
    values = [(i * i * 37 + i * 11) % (1 << bits) for i in range(ROWS * COLUMNS * samples)]
    dataset.PixelData = b"".join(v.to_bytes(allocated // 8, "little") for v in values)
    if len(dataset.PixelData) % 2:
        dataset.PixelData += b"\0"
    dataset["PixelData"].VR = "OB" if allocated == 8 else "OW"
    dataset.save_as(name, write_like_original=False)
else:
    dataset = pydicom.dcmread("packed.dcm")
    frame = next(generate_pixel_data_frame(dataset.PixelData, 1))
    head = bytes([int(sys.argv[2]), COLUMNS, ROWS, dataset.SamplesPerPixel])
    open(sys.argv[3], "wb").write(head + frame)
PYTHON
step()
{
    /usr/bin/python3 steps.py "$@"
}

jpeg=0 jpegls=1 jpeg2000=2
step picture gray.dcm 8 1
step picture gray12.dcm 12 1
step picture gray16.dcm 16 1
step picture rgb.dcm 8 3

# pack KIND NAME COMMAND...: the command gets the name of the packed object.
pack()
{
    local kind=$1 name=$2
    shift 2
    "$@" packed.dcm >log 2>&1 || { cat log >&2; die "$name: $1 failed"; }
    step seed "$kind" "$folder/$name"
}

for predictor in 1 2 3 4 5 6 7; do
    pack $jpeg lossless_$predictor dcmcjpeg +el +sv $predictor gray16.dcm
done
pack $jpeg lossless_shift dcmcjpeg +el +pt 2 gray12.dcm
pack $jpeg lossless_rgb dcmcjpeg +e1 rgb.dcm
pack $jpeg baseline dcmcjpeg +eb gray.dcm
pack $jpeg baseline_half dcmcjpeg +eb +s2 rgb.dcm
pack $jpeg baseline_quarter dcmcjpeg +eb +n1 rgb.dcm
pack $jpeg extended dcmcjpeg +ee +bt gray12.dcm
pack $jpeg extended_rgb dcmcjpeg +ee +s4 rgb.dcm
pack $jpeg progressive dcmcjpeg +ep +s4 rgb.dcm
pack $jpegls gray dcmcjpls +el gray.dcm
pack $jpegls gray_near dcmcjpls +en gray.dcm
pack $jpegls gray_wide dcmcjpls +el gray16.dcm
pack $jpegls by_line dcmcjpls +el +il rgb.dcm
pack $jpegls by_sample dcmcjpls +el +is rgb.dcm
pack $jpegls by_plane dcmcjpls +el +in rgb.dcm
pack $jpeg2000 jpeg2000 gdcmconv --j2k gray16.dcm
pack $jpeg2000 jpeg2000_lossy gdcmconv --j2k --irreversible gray.dcm
pack $jpeg2000 jpeg2000_rgb gdcmconv --j2k rgb.dcm
