// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "testing/SModelSubject_p.h"

namespace Plugin::Halvex::Testing {

// IdentityRules.cpp
SOutcome makesAModel(const SModelSubject& subject);
SOutcome answersQuestions(const SModelSubject& subject);
SOutcome hasAName(const SModelSubject& subject);
SOutcome nameStaysTheSame(const SModelSubject& subject);
SOutcome registersUnderOneName(const SModelSubject& subject);
SOutcome hasACaption(const SModelSubject& subject);
SOutcome hasItsMetaObject(const SModelSubject& subject);
SOutcome hasNoParent(const SModelSubject& subject);
SOutcome livesInTheGraphsThread(const SModelSubject& subject);

// PortRules.cpp
QString thrownWhenAsked(const CNodeDataModel& model, ENodePortType side, NodePortIndex port); // empty if nothing is
SOutcome portsStayTheSame(const SModelSubject& subject);
SOutcome noSideHasNoPorts(const SModelSubject& subject);
SOutcome portsHaveTypes(const SModelSubject& subject);
SOutcome typesStayTheSame(const SModelSubject& subject);
SOutcome takesMissingPorts(const SModelSubject& subject);

// DataRules.cpp
SOutcome answersBeforeData(const SModelSubject& subject);
SOutcome takesEmptyDataFirst(const SModelSubject& subject);
SOutcome takesItsData(const SModelSubject& subject);
SOutcome takesEmptyDataLater(const SModelSubject& subject);
SOutcome takesForeignData(const SModelSubject& subject);
SOutcome givesTheAnnouncedType(const SModelSubject& subject);
SOutcome leavesItsInputAlone(const SModelSubject& subject);
SOutcome leavesItsOutputAlone(const SModelSubject& subject);
SOutcome saysWhatIsWrong(const SModelSubject& subject);

// SignalRules.cpp
SOutcome announcesPortsThatExist(const SModelSubject& subject);
SOutcome storesBeforeItAnnounces(const SModelSubject& subject);
SOutcome announcesWhatItStores(const SModelSubject& subject);
SOutcome sourceAnnouncesInTheGraphsThread(const SModelSubject& subject);
SOutcome askingAnnouncesNothing(const SModelSubject& subject);
SOutcome endsWhatItBegins(const SModelSubject& subject);

// DocumentRules.cpp
SOutcome savesWhatItsBaseSaves(const SModelSubject& subject);
SOutcome savesWhatItRestored(const SModelSubject& subject);
SOutcome restoredBehavesAlike(const SModelSubject& subject);
SOutcome restoresAnEmptyDocument(const SModelSubject& subject);
SOutcome restoresOverAWorkingState(const SModelSubject& subject);
SOutcome takesForeignKeys(const SModelSubject& subject);
SOutcome takesWrongTypes(const SModelSubject& subject);

// PropertyRules.cpp
SOutcome propertiesSurviveSaving(const SModelSubject& subject);
SOutcome propertiesTellOfChanges(const SModelSubject& subject);

// LifeRules.cpp
SOutcome goesWhileItComputes(const SModelSubject& subject);
SOutcome goesInItsOwnSignals(const SModelSubject& subject);
SOutcome letsGoOfItsData(const SModelSubject& subject);
SOutcome leavesNothingBehind(const SModelSubject& subject);
SOutcome answersInTime(const SModelSubject& subject);

} // namespace Plugin::Halvex::Testing
