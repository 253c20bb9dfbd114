// The functions of the rules, by what they look at.
#pragma once

namespace roadcheck {

class Checking;

void CheckStraightMax(Checking& checking);
void CheckStraightMinSame(Checking& checking);
void CheckStraightMinReverse(Checking& checking);
void CheckRadiusMax(Checking& checking);
void CheckRadiusMin(Checking& checking);
void CheckRadiusRecommended(Checking& checking);
void CheckCurveLength(Checking& checking);
void CheckArcLength(Checking& checking);
void CheckSmallAngle(Checking& checking);
void CheckTransitionLength(Checking& checking);
void CheckTransitionMissing(Checking& checking);
void CheckWideningNeeded(Checking& checking);

void CheckSuperelevationNeeded(Checking& checking);
void CheckSuperelevationMax(Checking& checking);
void CheckSuperelevationLow(Checking& checking);
void CheckRunoff(Checking& checking);
void CheckResultantGradient(Checking& checking);

void CheckGradeMax(Checking& checking);
void CheckGradeRecommended(Checking& checking);
void CheckGradeMin(Checking& checking);
void CheckGradeLengthMin(Checking& checking);
void CheckGradeLengthMax(Checking& checking);
void CheckVerticalRadiusMin(Checking& checking);
void CheckVerticalRadiusGeneral(Checking& checking);
void CheckVerticalLength(Checking& checking);

} // namespace roadcheck
