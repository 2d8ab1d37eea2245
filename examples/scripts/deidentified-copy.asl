; Put before a dump, these commands make a copy without identifying attributes:
;     (cat deidentified-copy.asl; varnotix dump original.dcm) | varnotix build - -o copy.dcm
; The dump names the file that the pixel data is in. What the pixels show stays, and so do UIDs and study dates.
#ANONYMIZE_55=1,REMOVED
#ANONYMIZE_GROUP=0010,0032,0040
#REMOVE_GROUP=0009,0011,0019
0012,0062,CS,1,Patient Identity Removed,[YES,]
0012,0063,LO,-1,De-identification Method,[Varnotix script deidentified-copy,]
