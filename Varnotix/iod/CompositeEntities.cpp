#include "Varnotix/iod/CompositeEntities.h"

// The records go by the plain names, as those of all other classes do.
using composite_patient_ie = CDcmCompositeIE::composite_patient_ie;
using composite_study_ie = CDcmCompositeIE::composite_study_ie;
using composite_series_ie = CDcmCompositeIE::composite_series_ie;
using series_ie_cr = CDcmCompositeIE::series_ie_cr;
using series_ie_nm = CDcmCompositeIE::series_ie_nm;
using composite_equipment_ie = CDcmCompositeIE::composite_equipment_ie;
using equipment_ie_sc = CDcmCompositeIE::equipment_ie_sc;
using composite_frameref_ie = CDcmCompositeIE::composite_frameref_ie;
using frame_ie_us = CDcmCompositeIE::frame_ie_us;
using curve_ie_us = CDcmCompositeIE::curve_ie_us;
using composite_image_ie = CDcmCompositeIE::composite_image_ie;
using image_ie_cr = CDcmCompositeIE::image_ie_cr;
using image_ie_ct_mr = CDcmCompositeIE::image_ie_ct_mr;
using image_ie_ct = CDcmCompositeIE::image_ie_ct;
using image_ie_mr = CDcmCompositeIE::image_ie_mr;
using image_ie_nm = CDcmCompositeIE::image_ie_nm;
using image_ie_sc = CDcmCompositeIE::image_ie_sc;
using image_ie_sc_multi = CDcmCompositeIE::image_ie_sc_multi;
using composite_image_ie_us = CDcmCompositeIE::composite_image_ie_us;
using image_ie_us = CDcmCompositeIE::image_ie_us;
using image_ie_us_multi = CDcmCompositeIE::image_ie_us_multi;

IMPLEMENT_DYNCREATE(composite_patient_ie, CDcmIE)
IMPLEMENT_DYNCREATE(composite_study_ie, CDcmIE)
IMPLEMENT_DYNCREATE(composite_series_ie, CDcmIE)
IMPLEMENT_DYNCREATE(series_ie_cr, composite_series_ie)
IMPLEMENT_DYNCREATE(series_ie_nm, composite_series_ie)
IMPLEMENT_DYNCREATE(composite_equipment_ie, CDcmIE)
IMPLEMENT_DYNCREATE(equipment_ie_sc, composite_equipment_ie)
IMPLEMENT_DYNCREATE(composite_frameref_ie, CDcmIE)
IMPLEMENT_DYNCREATE(frame_ie_us, composite_frameref_ie)
IMPLEMENT_DYNCREATE(curve_ie_us, CDcmIE)
IMPLEMENT_DYNCREATE(composite_image_ie, CDcmIE)
IMPLEMENT_DYNCREATE(image_ie_cr, composite_image_ie)
IMPLEMENT_DYNCREATE(image_ie_ct_mr, composite_image_ie)
IMPLEMENT_DYNCREATE(image_ie_ct, image_ie_ct_mr)
IMPLEMENT_DYNCREATE(image_ie_mr, image_ie_ct_mr)
IMPLEMENT_DYNCREATE(image_ie_nm, composite_image_ie)
IMPLEMENT_DYNCREATE(image_ie_sc, composite_image_ie)
IMPLEMENT_DYNCREATE(image_ie_sc_multi, composite_image_ie)
IMPLEMENT_DYNCREATE(composite_image_ie_us, composite_image_ie)
IMPLEMENT_DYNCREATE(image_ie_us, composite_image_ie_us)
IMPLEMENT_DYNCREATE(image_ie_us_multi, composite_image_ie_us)
