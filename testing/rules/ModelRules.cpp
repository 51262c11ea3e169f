// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Every rule of models: its name, why there is such a rule, how to mend a model that breaks it, and what tries it.
// docs/model-contract.md has a paragraph for each.
//
// A rule that tries one thing stands before those for which a model does many: one that crashes ends the process in the
// rule that tells why.

#include "testing/rules/ModelRules_p.h"

namespace Plugin::Halvex::Testing {

const std::vector<SRule<SModelSubject>>& modelRuleTable()
{
    static const std::vector<SRule<SModelSubject>> table = {
        // Who it is.
        {"makes-a-model", "A registry calls the creator for each new node, and a node without a model cannot be.",
         "Return std::make_unique of the model, a new one at each call.", &makesAModel, true},
        {"answers-questions", "Hosts and documents ask at any time, and nobody there expects an exception.",
         "Let what is asked only read what the constructor has set.", &answersQuestions, true},
        {"has-a-name", "Registry and documents know a model by its name.", "Return a text of its own from name().",
         &hasAName},
        {"registers-under-one-name", "A registry makes one model to learn the name for all that come after.",
         "Do not put a count, a time or a serial number into name().", &registersUnderOneName},
        {"has-a-caption", "A node without a caption is an empty box to whoever looks at the graph.",
         "Return what people shall read from caption().", &hasACaption},
        {"has-its-meta-object",
         "Hosts find signals, settings and the kind of a model by its meta-object, and tr() finds its texts by it.",
         "Put Q_OBJECT into the class, and let moc run over its file.", &hasItsMetaObject},
        {"has-no-parent", "Its node deletes a model; a parent would delete it a second time.",
         "Pass no parent to the constructor of the base, and call setParent() never.", &hasNoParent},
        {"lives-in-the-graphs-thread",
         "The graph calls a model in the thread that made it, and its slots must run there.",
         "Do not move the model to a thread: move what works for it, or derive from AWorkerNodeDataModel.",
         &livesInTheGraphsThread},

        // Ports and data.
        {"no-side-has-no-ports", "None is neither side; whoever counts all ports would count these twice.",
         "Return 0 from nPorts() for ENodePortType::None.", &noSideHasNoPorts},
        {"ports-have-types", "Converters are found by the ids of two types, and editors tell by them what fits.",
         "Return the type() of your data class from dataType() for every port.", &portsHaveTypes},
        {"answers-before-data", "A new connection asks at once for what its output has, which may be nothing yet.",
         "Return null from outData() while there is nothing.", &answersBeforeData},
        {"takes-empty-data-first", "A connection that goes sends empty data, perhaps before any other came through it.",
         "Test the pointer in setInData() before you use it.", &takesEmptyDataFirst},
        {"takes-its-data",
         "What setInData() or outData() throws ends the walk: the nodes behind get nothing of this frame.",
         "Catch what can fail, make the output empty, and tell it in validationState() and validationMessage().",
         &takesItsData},
        {"takes-empty-data-later", "A connection that goes sends empty data, and another may be made afterwards.",
         "On empty data forget what was made of the data before, and be ready for more.", &takesEmptyDataLater},
        {"takes-foreign-data", "Nobody checks types when ports are connected: data of any type may arrive.",
         "Use dynamicCast, and treat what is of another type as empty data.", &takesForeignData},
        {"takes-missing-ports",
         "Who announces a wrong port is asked for it, and hosts ask by numbers that a document gave them.",
         "Test the index: answer with an empty type, text or pointer, and ignore data for a port that is not there.",
         &takesMissingPorts},
        {"gives-the-announced-type", "Whoever is connected relies on the type that the port announces.",
         "Let dataType() and outData() speak of the same class.", &givesTheAnnouncedType},
        {"leaves-its-input-alone", "One data object reaches every consumer of a port, in any order.",
         "Copy the content before you change it.", &leavesItsInputAlone},
        {"leaves-its-output-alone", "What was handed on is still in use: a display draws it, a writer stores it.",
         "Make a new object for each output; take memory from a pool if that costs too much.", &leavesItsOutputAlone},
        {"says-what-is-wrong", "A warning or an error without a word helps nobody who looks at the graph.",
         "Return a text from validationMessage() whenever validationState() is not Valid.", &saysWhatIsWrong},

        // Documents and settings.
        {"saves-what-its-base-saves",
         "A document finds the model by \"name\", and tells by \"is_unique\" whether to make one.",
         "Begin save() with the object that save() of the base class returns.", &savesWhatItsBaseSaves},
        {"restores-an-empty-document", "A chain that was written by hand gives a model's name and nothing else.",
         "Leave a setting as it is when its key is missing.", &restoresAnEmptyDocument},
        {"saves-what-it-restored",
         "A setting that restore() passes over is lost with each load, and one that it changes drifts.",
         "Let restore() take each value that save() writes, from the same key and as it is; write nothing that JSON "
         "cannot hold: NaN becomes null.",
         &savesWhatItRestored},
        {"restored-behaves-alike", "Users take it that a loaded graph does what the saved one did.",
         "Save every setting that has a bearing on the output or the caption.", &restoredBehavesAlike},
        {"restores-over-a-working-state", "A host may restore a model that is at work, to undo what a user did.",
         "Apply restored settings whatever the state: through the same functions that set them at other times.",
         &restoresOverAWorkingState},
        {"takes-foreign-keys", "Documents hold keys of newer versions, of other programs and of editors.",
         "Read the keys that you know, ignore the others, and do not save them again.", &takesForeignKeys},
        {"takes-wrong-types", "People write documents by hand, and a mistake there must not end the program.",
         "Check the type and the range of a value before you take it; leave the setting as it is otherwise.",
         &takesWrongTypes},
        {"properties-survive-saving", "A property is a setting to hosts: users change it, and take it to be saved.",
         "Save and restore every property that can be written, or declare it with STORED false.",
         &propertiesSurviveSaving},
        {"properties-tell-of-changes", "What shows a setting redraws it at the NOTIFY signal, and only then.",
         "In the setter: leave if nothing changes, store, then emit.", &propertiesTellOfChanges},

        // What it says, and what stays the same meanwhile.
        {"announces-ports-that-exist", "A node looks the port up in its table; for a missing one nothing is passed on.",
         "Emit dataUpdated() and dataInvalidated() for ports below nPorts(ENodePortType::Out).",
         &announcesPortsThatExist},
        {"stores-before-it-announces", "The node reads outData() while dataUpdated() is being emitted.",
         "Store the output first, in whichever thread, and emit dataUpdated() then.", &storesBeforeItAnnounces},
        {"announces-what-it-stores",
         "The graph asks for an output only when it is announced: what is stored in silence reaches nobody.",
         "Emit dataUpdated() of the port each time that new data was stored for it.", &announcesWhatItStores},
        {"source-announces-in-the-graphs-thread",
         "Cameras put data in from their own threads, and the output is read in the graph's.",
         "Leave the proxy to ASourceNodeDataModel: do not connect it to a lambda without a context or directly.",
         &sourceAnnouncesInTheGraphsThread},
        {"asking-announces-nothing",
         "The graph asks when something is announced: the two would call each other for ever.",
         "Let outData(), name(), caption() and save() only read.", &askingAnnouncesNothing},
        {"ends-what-it-begins", "Hosts show that a model works from computingStarted() to computingFinished().",
         "Emit the two in pairs, also when the work fails or is cancelled by empty data.", &endsWhatItBegins},
        {"name-stays-the-same", "A document that was saved under one name cannot be read under another.",
         "Return one constant from name(), untranslated; what may change belongs into caption().", &nameStaysTheSame},
        {"ports-stay-the-same", "A node asks for the number of ports once, and keeps a table of that size.",
         "Return constants from nPorts(); offer another model for another number of ports.", &portsStayTheSame},
        {"types-stay-the-same", "A connection gets its converter when it is made, and keeps it.",
         "Return the same type for a port for as long as the model exists.", &typesStayTheSame},

        // Its end.
        {"goes-while-it-computes",
         "Users delete nodes while frames flow, and the graph's thread stands still meanwhile.",
         "Tell your threads to stop, and do not wait for long work; AWorkerNodeDataModel does both.",
         &goesWhileItComputes},
        {"goes-in-its-own-signals", "Whoever hears of something may remove the node that said it.",
         "Emit last, or look at a QPointer of the model before you go on.", &goesInItsOwnSignals},
        {"lets-go-of-its-data", "A camera has few buffers: a frame that is held for ever is one less.",
         "Keep data in members alone, and drop what still waits when the model goes.", &letsGoOfItsData},
        {"leaves-nothing-behind", "Hosts run for months, and make and remove nodes all the time.",
         "Free in the destructor what the constructor made: threads, files, memory.", &leavesNothingBehind},
        {"answers-in-time", "All models share the graph's thread: one that takes long holds up everything behind it.",
         "Do the work elsewhere: derive from AWorkerNodeDataModel, or put a decoupler before the model.",
         &answersInTime},
    };
    return table;
}

} // namespace Plugin::Halvex::Testing
