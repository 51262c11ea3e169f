<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>Host::CAravisCamera</name>
    <message>
        <source>camera &apos;%1&apos;: another program is using it (%2)</source>
        <translation>camera &apos;%1&apos;: another program is using it (%2)</translation>
    </message>
    <message>
        <source>camera &apos;%1&apos;: %2</source>
        <translation>camera &apos;%1&apos;: %2</translation>
    </message>
    <message>
        <source>cannot read camera &apos;%1&apos;: %2</source>
        <translation>cannot read camera &apos;%1&apos;: %2</translation>
    </message>
    <message>
        <source>camera &apos;%1&apos; does not start: %2</source>
        <translation>camera &apos;%1&apos; does not start: %2</translation>
    </message>
    <message>
        <source>camera &apos;%1&apos; gives no stream: %2</source>
        <translation>camera &apos;%1&apos; gives no stream: %2</translation>
    </message>
    <message>
        <source>camera &apos;%1&apos; has gone: it no longer answers</source>
        <translation>camera &apos;%1&apos; has gone: it no longer answers</translation>
    </message>
</context>
<context>
    <name>Host::CCameraList</name>
    <message>
        <source>Simulated camera</source>
        <translation>Simulated camera</translation>
    </message>
    <message>
        <source>Free</source>
        <translation>Free</translation>
    </message>
    <message>
        <source>Connecting</source>
        <translation>Connecting</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>Connected</translation>
    </message>
    <message>
        <source>Streaming</source>
        <translation>Streaming</translation>
    </message>
    <message>
        <source>Gone, waiting for it</source>
        <translation>Gone, waiting for it</translation>
    </message>
    <message>
        <source>In use by another program</source>
        <translation>In use by another program</translation>
    </message>
    <message>
        <source>Cannot be opened</source>
        <translation>Cannot be opened</translation>
    </message>
    <message>
        <source>%1 frames/s · %2 frames</source>
        <translation>%1 frames/s · %2 frames</translation>
    </message>
</context>
<context>
    <name>Host::CCameraPanel</name>
    <message>
        <source>Folder with images</source>
        <translation>Folder with images</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>Video</translation>
    </message>
    <message>
        <source>Videos (*.avi *.mkv *.mp4 *.mov);;All files (*)</source>
        <translation>Videos (*.avi *.mkv *.mp4 *.mov);;All files (*)</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Connect</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stop</translation>
    </message>
    <message>
        <source>Single frame</source>
        <translation>Single frame</translation>
    </message>
    <message>
        <source>Trigger</source>
        <translation>Trigger</translation>
    </message>
    <message>
        <source>Disconnect</source>
        <translation>Disconnect</translation>
    </message>
    <message>
        <source>Open images as a camera…</source>
        <translation>Open images as a camera…</translation>
    </message>
    <message>
        <source>Open a video as a camera…</source>
        <translation>Open a video as a camera…</translation>
    </message>
    <message>
        <source>Cameras</source>
        <translation>Cameras</translation>
    </message>
    <message>
        <source>Message of the camera</source>
        <translation>Message of the camera</translation>
    </message>
</context>
<context>
    <name>Host::CCameraSession</name>
    <message>
        <source>The graph has no place for this camera: its node was removed.</source>
        <translation>The graph has no place for this camera: its node was removed.</translation>
    </message>
    <message>
        <source>Images of the format %1 cannot be shown.</source>
        <translation>Images of the format %1 cannot be shown.</translation>
    </message>
</context>
<context>
    <name>Host::CChainReader</name>
    <message>
        <source>no element has a camera as its source</source>
        <translation>no element has a camera as its source</translation>
    </message>
    <message>
        <source>the camera %1</source>
        <translation>the camera %1</translation>
    </message>
    <message>
        <source>a %1 of its own; frames come from the cameras of the run, named in %2</source>
        <translation>a %1 of its own; frames come from the cameras of the run, named in %2</translation>
    </message>
    <message>
        <source>%1 stands for any camera</source>
        <translation>%1 stands for any camera</translation>
    </message>
    <message>
        <source>%1 is the name of a camera</source>
        <translation>%1 is the name of a camera</translation>
    </message>
    <message>
        <source>a second element %1, after that at %2</source>
        <translation>a second element %1, after that at %2</translation>
    </message>
    <message>
        <source>no element is named %1, so that it is taken for a camera</source>
        <translation>no element is named %1, so that it is taken for a camera</translation>
    </message>
    <message>
        <source>too many names are unknown to say whether a label was meant</source>
        <translation>too many names are unknown to say whether a label was meant</translation>
    </message>
    <message>
        <source>no element is named %1</source>
        <translation>no element is named %1</translation>
    </message>
    <message>
        <source>no camera of the run and no element is named %1</source>
        <translation>no camera of the run and no element is named %1</translation>
    </message>
</context>
<context>
    <name>Host::CCommandPalette</name>
    <message>
        <source>Commands</source>
        <translation>Commands</translation>
    </message>
    <message>
        <source>What do you want to do?</source>
        <translation>What do you want to do?</translation>
    </message>
    <message>
        <source>Search commands</source>
        <translation>Search commands</translation>
    </message>
</context>
<context>
    <name>Host::CConnectionItem</name>
    <message>
        <source>%1 fps</source>
        <translation>%1 fps</translation>
    </message>
</context>
<context>
    <name>Host::CDocumentCheck</name>
    <message>
        <source>%1, where an array (a chain) or an object (a scene) belongs</source>
        <translation>%1, where an array (a chain) or an object (a scene) belongs</translation>
    </message>
</context>
<context>
    <name>Host::CFaultList</name>
    <message>
        <source>there are more faults than these %1</source>
        <translation>there are more faults than these %1</translation>
    </message>
</context>
<context>
    <name>Host::CFaultModel</name>
    <message>
        <source>Error</source>
        <translation>Error</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warning</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Kind</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>Place</translation>
    </message>
    <message>
        <source>What is wrong</source>
        <translation>What is wrong</translation>
    </message>
</context>
<context>
    <name>Host::CFaultPanel</name>
    <message>
        <source>line %1, column %2</source>
        <translation>line %1, column %2</translation>
    </message>
    <message>
        <source>scene</source>
        <translation>scene</translation>
    </message>
    <message>
        <source>Check</source>
        <translation>Check</translation>
    </message>
    <message>
        <source>What the check found</source>
        <translation>What the check found</translation>
    </message>
    <message>
        <source>The text that was checked</source>
        <translation>The text that was checked</translation>
    </message>
    <message>
        <source>Nothing has been checked yet.</source>
        <translation>Nothing has been checked yet.</translation>
    </message>
    <message>
        <source>No faults were found.</source>
        <translation>No faults were found.</translation>
    </message>
    <message>
        <source>Errors: %1, warnings: %2</source>
        <translation>Errors: %1, warnings: %2</translation>
    </message>
</context>
<context>
    <name>Host::CFeatureEditor</name>
    <message>
        <source>Run</source>
        <translation>Run</translation>
    </message>
    <message>
        <source>Cannot be changed now</source>
        <translation>Cannot be changed now</translation>
    </message>
</context>
<context>
    <name>Host::CFeaturePanel</name>
    <message>
        <source>Connect a camera to see its features.</source>
        <translation>Connect a camera to see its features.</translation>
    </message>
    <message>
        <source>Files have no features.</source>
        <translation>Files have no features.</translation>
    </message>
    <message>
        <source>Read features again</source>
        <translation>Read features again</translation>
    </message>
    <message>
        <source>Search features</source>
        <translation>Search features</translation>
    </message>
    <message>
        <source>Features of the camera</source>
        <translation>Features of the camera</translation>
    </message>
    <message>
        <source>Message of the camera</source>
        <translation>Message of the camera</translation>
    </message>
</context>
<context>
    <name>Host::CFeatures</name>
    <message>
        <source>%1 to %2 in steps of %3</source>
        <translation>%1 to %2 in steps of %3</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 to %2</translation>
    </message>
    <message>
        <source>boolean, true, false</source>
        <translation>boolean, true, false</translation>
    </message>
    <message>
        <source>integer</source>
        <translation>integer</translation>
    </message>
    <message>
        <source>integer, %1</source>
        <translation>integer, %1</translation>
    </message>
    <message>
        <source>float</source>
        <translation>float</translation>
    </message>
    <message>
        <source>float, %1</source>
        <translation>float, %1</translation>
    </message>
    <message>
        <source>the feature &apos;%1&apos; takes one of %2, not %3</source>
        <translation>the feature &apos;%1&apos; takes one of %2, not %3</translation>
    </message>
    <message>
        <source>the feature &apos;%1&apos; takes %2, not %3</source>
        <translation>the feature &apos;%1&apos; takes %2, not %3</translation>
    </message>
    <message>
        <source>In no category</source>
        <translation>In no category</translation>
    </message>
    <message>
        <source>it has no feature %1</source>
        <translation>it has no feature %1</translation>
    </message>
    <message>
        <source>the feature &apos;%1&apos; cannot be written now</source>
        <translation>the feature &apos;%1&apos; cannot be written now</translation>
    </message>
    <message>
        <source>the feature &apos;%1&apos; is read only</source>
        <translation>the feature &apos;%1&apos; is read only</translation>
    </message>
    <message>
        <source>the feature &apos;%1&apos; refuses %2: %3</source>
        <translation>the feature &apos;%1&apos; refuses %2: %3</translation>
    </message>
</context>
<context>
    <name>Host::CFileSource</name>
    <message>
        <source>cannot read %1: its pixels are %2; it takes 8 or 16 bits, grey or colour</source>
        <translation>cannot read %1: its pixels are %2; it takes 8 or 16 bits, grey or colour</translation>
    </message>
</context>
<context>
    <name>Host::CFileWriter</name>
    <message>
        <source>cannot write &apos;%1&apos;: %2</source>
        <translation>cannot write &apos;%1&apos;: %2</translation>
    </message>
</context>
<context>
    <name>Host::CFrameTable</name>
    <message>
        <source>cannot write &apos;%1&apos;: %2</source>
        <translation>cannot write &apos;%1&apos;: %2</translation>
    </message>
</context>
<context>
    <name>Host::CGLibError</name>
    <message>
        <source>no answer</source>
        <translation>no answer</translation>
    </message>
</context>
<context>
    <name>Host::CGraphActions</name>
    <message>
        <source>Undo %1</source>
        <translation>Undo %1</translation>
    </message>
    <message>
        <source>Redo %1</source>
        <translation>Redo %1</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Cut</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copy</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Paste</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Duplicate</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Delete</translation>
    </message>
    <message>
        <source>Select all nodes</source>
        <translation>Select all nodes</translation>
    </message>
    <message>
        <source>Connect…</source>
        <translation>Connect…</translation>
    </message>
    <message>
        <source>Choose the next connection</source>
        <translation>Choose the next connection</translation>
    </message>
    <message>
        <source>Arrange</source>
        <translation>Arrange</translation>
    </message>
    <message>
        <source>Find a node…</source>
        <translation>Find a node…</translation>
    </message>
    <message>
        <source>Show all</source>
        <translation>Show all</translation>
    </message>
    <message>
        <source>Actual size</source>
        <translation>Actual size</translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation>Zoom in</translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation>Zoom out</translation>
    </message>
    <message>
        <source>Overview</source>
        <translation>Overview</translation>
    </message>
</context>
<context>
    <name>Host::CGraphCheck</name>
    <message>
        <source>%1 has no output port %2; it has none</source>
        <translation>%1 has no output port %2; it has none</translation>
    </message>
    <message>
        <source>%1 has no output port %2; its only output port is 0</source>
        <translation>%1 has no output port %2; its only output port is 0</translation>
    </message>
    <message>
        <source>%1 has no output port %2; its output ports are 0 to %3</source>
        <translation>%1 has no output port %2; its output ports are 0 to %3</translation>
    </message>
    <message>
        <source>%1 has no input port %2; it has none</source>
        <translation>%1 has no input port %2; it has none</translation>
    </message>
    <message>
        <source>%1 has no input port %2; its only input port is 0</source>
        <translation>%1 has no input port %2; its only input port is 0</translation>
    </message>
    <message>
        <source>%1 has no input port %2; its input ports are 0 to %3</source>
        <translation>%1 has no input port %2; its input ports are 0 to %3</translation>
    </message>
    <message>
        <source>no source reaches %1</source>
        <translation>no source reaches %1</translation>
    </message>
    <message>
        <source>no source reaches %1, and so not what lies behind it (1 node)</source>
        <translation>no source reaches %1, and so not what lies behind it (1 node)</translation>
    </message>
    <message>
        <source>no source reaches %1, and so not what lies behind it (%2 nodes)</source>
        <translation>no source reaches %1, and so not what lies behind it (%2 nodes)</translation>
    </message>
    <message>
        <source>%1 feeds %2 already, at %3: all data would come twice</source>
        <translation>%1 feeds %2 already, at %3: all data would come twice</translation>
    </message>
    <message>
        <source>%1 gives %2, and %3 takes %4</source>
        <translation>%1 gives %2, and %3 takes %4</translation>
    </message>
    <message>
        <source>a converter from %1 to %2, where %3 gives %4, and %5 takes %6</source>
        <translation>a converter from %1 to %2, where %3 gives %4, and %5 takes %6</translation>
    </message>
    <message>
        <source>a converter from %1 to %2 is not registered</source>
        <translation>a converter from %1 to %2 is not registered</translation>
    </message>
    <message>
        <source>the connection lacks its &apos;converter&apos;, which is registered</source>
        <translation>the connection lacks its &apos;converter&apos;, which is registered</translation>
    </message>
    <message>
        <source>put a %1 between</source>
        <translation>put a %1 between</translation>
    </message>
    <message>
        <source>no model makes the one of the other</source>
        <translation>no model makes the one of the other</translation>
    </message>
    <message>
        <source>%1 more</source>
        <comment>nodes</comment>
        <translation>%1 more</translation>
    </message>
    <message>
        <source>a loop, with no decoupler in it: %1</source>
        <translation>a loop, with no decoupler in it: %1</translation>
    </message>
    <message>
        <source>nothing is wired to %1</source>
        <translation>nothing is wired to %1</translation>
    </message>
    <message>
        <source>nothing feeds input port %1 of %2</source>
        <translation>nothing feeds input port %1 of %2</translation>
    </message>
</context>
<context>
    <name>Host::CGraphEditor</name>
    <message>
        <source>&apos;%1&apos; was removed at once</source>
        <translation>&apos;%1&apos; was removed at once</translation>
    </message>
    <message>
        <source>&apos;%1&apos; cannot be added: %2</source>
        <translation>&apos;%1&apos; cannot be added: %2</translation>
    </message>
    <message>
        <source>Add &apos;%1&apos;</source>
        <translation>Add &apos;%1&apos;</translation>
    </message>
    <message>
        <source>&apos;%1&apos; stays: it is what the scene was made for</source>
        <translation>&apos;%1&apos; stays: it is what the scene was made for</translation>
    </message>
    <message>
        <source>These ports do not fit</source>
        <translation>These ports do not fit</translation>
    </message>
    <message>
        <source>The connection</source>
        <translation>The connection</translation>
    </message>
    <message>
        <source>The connection was removed at once</source>
        <translation>The connection was removed at once</translation>
    </message>
    <message>
        <source>Connect &apos;%1&apos; to &apos;%2&apos;</source>
        <translation>Connect &apos;%1&apos; to &apos;%2&apos;</translation>
    </message>
    <message>
        <source>Set %1 of &apos;%2&apos; to %3</source>
        <translation>Set %1 of &apos;%2&apos; to %3</translation>
    </message>
    <message numerus="yes">
        <source>Move %n nodes</source>
        <translation>
            <numerusform>Move %n node</numerusform>
            <numerusform>Move %n nodes</numerusform>
        </translation>
    </message>
    <message>
        <source>Move &apos;%1&apos;</source>
        <translation>Move &apos;%1&apos;</translation>
    </message>
    <message>
        <source>The scene is gone</source>
        <translation>The scene is gone</translation>
    </message>
    <message numerus="yes">
        <source>Not everything could be brought back: %n parts are missing</source>
        <translation>
            <numerusform>Not everything could be brought back: %n part is missing</numerusform>
            <numerusform>Not everything could be brought back: %n parts are missing</numerusform>
        </translation>
    </message>
    <message>
        <source>The node of this step is gone</source>
        <translation>The node of this step is gone</translation>
    </message>
    <message>
        <source>Delete a connection</source>
        <translation>Delete a connection</translation>
    </message>
    <message numerus="yes">
        <source>Delete %n connections</source>
        <translation>
            <numerusform>Delete %n connection</numerusform>
            <numerusform>Delete %n connections</numerusform>
        </translation>
    </message>
    <message>
        <source>Delete &apos;%1&apos;</source>
        <translation>Delete &apos;%1&apos;</translation>
    </message>
    <message numerus="yes">
        <source>Delete %n nodes</source>
        <translation>
            <numerusform>Delete %n node</numerusform>
            <numerusform>Delete %n nodes</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 with a connection</source>
        <translation>%1 with a connection</translation>
    </message>
    <message numerus="yes">
        <source>%1 with %n connections</source>
        <translation>
            <numerusform>%1 with %n connection</numerusform>
            <numerusform>%1 with %n connections</numerusform>
        </translation>
    </message>
    <message>
        <source>There is nothing that can be there twice</source>
        <translation>There is nothing that can be there twice</translation>
    </message>
    <message numerus="yes">
        <source>Duplicate %n nodes</source>
        <translation>
            <numerusform>Duplicate %n node</numerusform>
            <numerusform>Duplicate %n nodes</numerusform>
        </translation>
    </message>
    <message>
        <source>Duplicate &apos;%1&apos;</source>
        <translation>Duplicate &apos;%1&apos;</translation>
    </message>
    <message>
        <source>There are no nodes in the text</source>
        <translation>There are no nodes in the text</translation>
    </message>
    <message numerus="yes">
        <source>Paste %n nodes</source>
        <translation>
            <numerusform>Paste %n node</numerusform>
            <numerusform>Paste %n nodes</numerusform>
        </translation>
    </message>
    <message>
        <source>Paste a node</source>
        <translation>Paste a node</translation>
    </message>
    <message>
        <source>Only a scene of the service takes chains</source>
        <translation>Only a scene of the service takes chains</translation>
    </message>
    <message>
        <source>The chain names a model that there is not</source>
        <translation>The chain names a model that there is not</translation>
    </message>
    <message>
        <source>There is no chain in the text</source>
        <translation>There is no chain in the text</translation>
    </message>
    <message numerus="yes">
        <source>Import %n nodes</source>
        <translation>
            <numerusform>Import %n node</numerusform>
            <numerusform>Import %n nodes</numerusform>
        </translation>
    </message>
    <message>
        <source>Import a node</source>
        <translation>Import a node</translation>
    </message>
</context>
<context>
    <name>Host::CGraphOverview</name>
    <message>
        <source>Overview of the graph</source>
        <translation>Overview of the graph</translation>
    </message>
    <message>
        <source>Click to go there</source>
        <translation>Click to go there</translation>
    </message>
</context>
<context>
    <name>Host::CGraphSearch</name>
    <message>
        <source>none</source>
        <translation>none</translation>
    </message>
    <message>
        <source>%1 / %2</source>
        <translation>%1 / %2</translation>
    </message>
    <message>
        <source>Find a node</source>
        <translation>Find a node</translation>
    </message>
</context>
<context>
    <name>Host::CGraphView</name>
    <message>
        <source>Graph</source>
        <translation>Graph</translation>
    </message>
</context>
<context>
    <name>Host::CHistogramView</name>
    <message>
        <source>Histogram</source>
        <translation>Histogram</translation>
    </message>
    <message>
        <source>How often each value occurs in what is seen, or in the rectangle. The lines stand at the values that are shown as black and as white.</source>
        <translation>How often each value occurs in what is seen, or in the rectangle. The lines stand at the values that are shown as black and as white.</translation>
    </message>
</context>
<context>
    <name>Host::CImageActions</name>
    <message>
        <source>Fit</source>
        <translation>Fit</translation>
    </message>
    <message>
        <source>Show all of the image</source>
        <translation>Show all of the image</translation>
    </message>
    <message>
        <source>1:1</source>
        <translation>1:1</translation>
    </message>
    <message>
        <source>Show each pixel as one pixel of the screen</source>
        <translation>Show each pixel as one pixel of the screen</translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation>Zoom in</translation>
    </message>
    <message>
        <source>Show the image larger</source>
        <translation>Show the image larger</translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation>Zoom out</translation>
    </message>
    <message>
        <source>Show the image smaller</source>
        <translation>Show the image smaller</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>Rectangle</translation>
    </message>
    <message>
        <source>Draw a rectangle to measure in</source>
        <translation>Draw a rectangle to measure in</translation>
    </message>
    <message>
        <source>Plain</source>
        <translation>Plain</translation>
    </message>
    <message>
        <source>Show the image as it is</source>
        <translation>Show the image as it is</translation>
    </message>
    <message>
        <source>Heat</source>
        <translation>Heat</translation>
    </message>
    <message>
        <source>Show dark as black and purple, bright as yellow</source>
        <translation>Show dark as black and purple, bright as yellow</translation>
    </message>
    <message>
        <source>Spectrum</source>
        <translation>Spectrum</translation>
    </message>
    <message>
        <source>Show dark as blue, bright as red</source>
        <translation>Show dark as blue, bright as red</translation>
    </message>
    <message>
        <source>Limits</source>
        <translation>Limits</translation>
    </message>
    <message>
        <source>Show black as blue and white as red</source>
        <translation>Show black as blue and white as red</translation>
    </message>
    <message>
        <source>Full range</source>
        <translation>Full range</translation>
    </message>
    <message>
        <source>Show all values that the camera has</source>
        <translation>Show all values that the camera has</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>Automatic</translation>
    </message>
    <message>
        <source>Show the values that occur, from black to white</source>
        <translation>Show the values that occur, from black to white</translation>
    </message>
    <message>
        <source>Manual</source>
        <translation>Manual</translation>
    </message>
    <message>
        <source>Choose which values are black and white</source>
        <translation>Choose which values are black and white</translation>
    </message>
    <message>
        <source>Histogram</source>
        <translation>Histogram</translation>
    </message>
    <message>
        <source>Show how often each value occurs</source>
        <translation>Show how often each value occurs</translation>
    </message>
    <message>
        <source>Logarithmic histogram</source>
        <translation>Logarithmic histogram</translation>
    </message>
    <message>
        <source>Show rare values of the histogram, too</source>
        <translation>Show rare values of the histogram, too</translation>
    </message>
    <message>
        <source>Save image…</source>
        <translation>Save image…</translation>
    </message>
    <message>
        <source>Save the image in the camera&apos;s full depth</source>
        <translation>Save the image in the camera&apos;s full depth</translation>
    </message>
    <message>
        <source>Save view…</source>
        <translation>Save view…</translation>
    </message>
    <message>
        <source>Save what is seen</source>
        <translation>Save what is seen</translation>
    </message>
    <message>
        <source>Copy view</source>
        <translation>Copy view</translation>
    </message>
    <message>
        <source>Copy what is seen</source>
        <translation>Copy what is seen</translation>
    </message>
    <message>
        <source>Record PNG files</source>
        <translation>Record PNG files</translation>
    </message>
    <message>
        <source>Write each image into a PNG file</source>
        <translation>Write each image into a PNG file</translation>
    </message>
    <message>
        <source>Record raw files</source>
        <translation>Record raw files</translation>
    </message>
    <message>
        <source>Write the values of each image into a file</source>
        <translation>Write the values of each image into a file</translation>
    </message>
    <message>
        <source>Record video</source>
        <translation>Record video</translation>
    </message>
    <message>
        <source>Write the images into a video</source>
        <translation>Write the images into a video</translation>
    </message>
    <message>
        <source>Recording folder…</source>
        <translation>Recording folder…</translation>
    </message>
    <message>
        <source>Choose where recordings are written</source>
        <translation>Choose where recordings are written</translation>
    </message>
    <message>
        <source>Stop recording</source>
        <translation>Stop recording</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>Colours</translation>
    </message>
    <message>
        <source>False colours</source>
        <translation>False colours</translation>
    </message>
    <message>
        <source>Black and white</source>
        <translation>Black and white</translation>
    </message>
    <message>
        <source>Which values are black and white</source>
        <translation>Which values are black and white</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Save</translation>
    </message>
    <message>
        <source>Save the image</source>
        <translation>Save the image</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Record</translation>
    </message>
    <message>
        <source>Record the images</source>
        <translation>Record the images</translation>
    </message>
</context>
<context>
    <name>Host::CImageDock</name>
    <message>
        <source>Copied %1 × %2 pixels</source>
        <translation>Copied %1 × %2 pixels</translation>
    </message>
    <message>
        <source>Recording folder</source>
        <translation>Recording folder</translation>
    </message>
    <message>
        <source>Image tools</source>
        <translation>Image tools</translation>
    </message>
</context>
<context>
    <name>Host::CImageFiles</name>
    <message>
        <source>it is a folder</source>
        <translation>it is a folder</translation>
    </message>
    <message>
        <source>no image, or a broken one</source>
        <translation>no image, or a broken one</translation>
    </message>
    <message>
        <source>no image in the folder %1; it takes %2</source>
        <translation>no image in the folder %1; it takes %2</translation>
    </message>
    <message>
        <source>no file matches %1</source>
        <translation>no file matches %1</translation>
    </message>
    <message>
        <source>no such folder or file: %1</source>
        <translation>no such folder or file: %1</translation>
    </message>
    <message>
        <source>image %1</source>
        <comment>one that stands in for a camera</comment>
        <translation>image %1</translation>
    </message>
    <message>
        <source>%1 images of %2</source>
        <translation>%1 images of %2</translation>
    </message>
    <message>
        <source>cannot read %1: %2</source>
        <translation>cannot read %1: %2</translation>
    </message>
</context>
<context>
    <name>Host::CImageSaver</name>
    <message>
        <source>Save image</source>
        <translation>Save image</translation>
    </message>
    <message>
        <source>image-%1</source>
        <translation>image-%1</translation>
    </message>
    <message>
        <source>Save view</source>
        <translation>Save view</translation>
    </message>
    <message>
        <source>view</source>
        <translation>view</translation>
    </message>
    <message>
        <source>PNG images (*.png)</source>
        <translation>PNG images (*.png)</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>Saved %1</translation>
    </message>
    <message>
        <source>Cannot save %1: %2</source>
        <translation>Cannot save %1: %2</translation>
    </message>
    <message>
        <source>the image has no PNG form</source>
        <translation>the image has no PNG form</translation>
    </message>
</context>
<context>
    <name>Host::CImageStatus</name>
    <message>
        <source>Image status</source>
        <translation>Image status</translation>
    </message>
    <message>
        <source>Value under the cursor</source>
        <translation>Value under the cursor</translation>
    </message>
    <message>
        <source>Rates</source>
        <translation>Rates</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Message</translation>
    </message>
    <message>
        <source>%1 of %2 frames/s shown</source>
        <translation>%1 of %2 frames/s shown</translation>
    </message>
    <message>
        <source>x %1  y %2: %3</source>
        <translation>x %1  y %2: %3</translation>
    </message>
</context>
<context>
    <name>Host::CImageView</name>
    <message>
        <source>Image</source>
        <translation>Image</translation>
    </message>
    <message>
        <source>Arrow keys move the view, with Alt the pixel whose value is told, with Ctrl the rectangle, with Shift its corner.</source>
        <translation>Arrow keys move the view, with Alt the pixel whose value is told, with Ctrl the rectangle, with Shift its corner.</translation>
    </message>
    <message>
        <source>No image</source>
        <translation>No image</translation>
    </message>
</context>
<context>
    <name>Host::CJsonTree</name>
    <message>
        <source>an array</source>
        <translation>an array</translation>
    </message>
    <message>
        <source>an object</source>
        <translation>an object</translation>
    </message>
    <message>
        <source>the string %1</source>
        <translation>the string %1</translation>
    </message>
    <message>
        <source>the number %1</source>
        <translation>the number %1</translation>
    </message>
</context>
<context>
    <name>Host::CModelCatalogue</name>
    <message>
        <source>making %1</source>
        <translation>making %1</translation>
    </message>
</context>
<context>
    <name>Host::CModelPalette</name>
    <message>
        <source>Models</source>
        <translation>Models</translation>
    </message>
    <message>
        <source>Search models</source>
        <translation>Search models</translation>
    </message>
    <message>
        <source>Models by category</source>
        <translation>Models by category</translation>
    </message>
</context>
<context>
    <name>Host::CNodeReader</name>
    <message>
        <source>a %1 cannot be made</source>
        <translation>a %1 cannot be made</translation>
    </message>
    <message>
        <source>no model %1 is registered</source>
        <translation>no model %1 is registered</translation>
    </message>
    <message>
        <source>asking for ports</source>
        <translation>asking for ports</translation>
    </message>
    <message>
        <source>a sink needs a name for its folder: &quot;property&quot;: {&quot;sink_name&quot;: …}</source>
        <translation>a sink needs a name for its folder: &quot;property&quot;: {&quot;sink_name&quot;: …}</translation>
    </message>
    <message>
        <source>the sink&apos;s name %1 makes no folder</source>
        <translation>the sink&apos;s name %1 makes no folder</translation>
    </message>
    <message>
        <source>a second sink %1, after that at %2</source>
        <translation>a second sink %1, after that at %2</translation>
    </message>
</context>
<context>
    <name>Host::CNodeTexts</name>
    <message>
        <source>received</source>
        <translation>received</translation>
    </message>
    <message>
        <source>emitted</source>
        <translation>emitted</translation>
    </message>
    <message>
        <source>dropped</source>
        <translation>dropped</translation>
    </message>
    <message>
        <source>pending</source>
        <translation>pending</translation>
    </message>
    <message>
        <source>rate</source>
        <translation>rate</translation>
    </message>
    <message>
        <source>%1 fps</source>
        <translation>%1 fps</translation>
    </message>
    <message>
        <source>work</source>
        <translation>work</translation>
    </message>
    <message>
        <source>%1 ms</source>
        <translation>%1 ms</translation>
    </message>
</context>
<context>
    <name>Host::CRangeBar</name>
    <message>
        <source>Black and white</source>
        <translation>Black and white</translation>
    </message>
    <message>
        <source>&amp;Black</source>
        <translation>&amp;Black</translation>
    </message>
    <message>
        <source>&amp;White</source>
        <translation>&amp;White</translation>
    </message>
    <message>
        <source>Value shown as black</source>
        <translation>Value shown as black</translation>
    </message>
    <message>
        <source>Value shown as white</source>
        <translation>Value shown as white</translation>
    </message>
</context>
<context>
    <name>Host::CReconnectingCamera</name>
    <message>
        <source>%1; it did not come back for %2 s</source>
        <translation>%1; it did not come back for %2 s</translation>
    </message>
</context>
<context>
    <name>Host::CRecordBar</name>
    <message>
        <source>Recording</source>
        <translation>Recording</translation>
    </message>
    <message>
        <source>Finishing, %1 waiting</source>
        <translation>Finishing, %1 waiting</translation>
    </message>
    <message>
        <source>Recorded</source>
        <translation>Recorded</translation>
    </message>
    <message>
        <source>Recording ended</source>
        <translation>Recording ended</translation>
    </message>
    <message>
        <source>Not recorded</source>
        <translation>Not recorded</translation>
    </message>
    <message>
        <source>Counts of the recording</source>
        <translation>Counts of the recording</translation>
    </message>
    <message>
        <source>Folder or error of the recording</source>
        <translation>Folder or error of the recording</translation>
    </message>
    <message>
        <source>Hide the recording&apos;s counts</source>
        <translation>Hide the recording&apos;s counts</translation>
    </message>
    <message>
        <source>%1 received · %2 written · %3 dropped</source>
        <translation>%1 received · %2 written · %3 dropped</translation>
    </message>
</context>
<context>
    <name>Host::CRecorder</name>
    <message>
        <source>No folder can be made in %1.</source>
        <translation>No folder can be made in %1.</translation>
    </message>
</context>
<context>
    <name>Host::CSceneFiles</name>
    <message>
        <source>the scene has no camera</source>
        <translation>the scene has no camera</translation>
    </message>
    <message>
        <source>the scene is gone</source>
        <translation>the scene is gone</translation>
    </message>
    <message>
        <source>nothing of &apos;%1&apos; could be made</source>
        <translation>nothing of &apos;%1&apos; could be made</translation>
    </message>
    <message>
        <source>the scene cannot be cleared</source>
        <translation>the scene cannot be cleared</translation>
    </message>
    <message>
        <source>cannot open &apos;%1&apos;</source>
        <translation>cannot open &apos;%1&apos;</translation>
    </message>
    <message>
        <source>cannot import &apos;%1&apos;</source>
        <translation>cannot import &apos;%1&apos;</translation>
    </message>
</context>
<context>
    <name>Host::CSceneLoader</name>
    <message>
        <source>the scene is gone</source>
        <translation>the scene is gone</translation>
    </message>
    <message>
        <source>connections[%1]: the scene refuses it</source>
        <translation>connections[%1]: the scene refuses it</translation>
    </message>
    <message>
        <source>making %1</source>
        <translation>making %1</translation>
    </message>
</context>
<context>
    <name>Host::CSceneReader</name>
    <message>
        <source>none of the nodes is a %1, the camera of the run</source>
        <translation>none of the nodes is a %1, the camera of the run</translation>
    </message>
    <message>
        <source>a unique %1 is not made of a document, and there is none to refer to</source>
        <translation>a unique %1 is not made of a document, and there is none to refer to</translation>
    </message>
    <message>
        <source>a %1 is a source without a camera; only a %2 stands for one</source>
        <translation>a %1 is a source without a camera; only a %2 stands for one</translation>
    </message>
    <message>
        <source>a second %1, after that at %2; a scene has one camera</source>
        <translation>a second %1, after that at %2; a scene has one camera</translation>
    </message>
    <message>
        <source>%1 is no id; one is like %2</source>
        <translation>%1 is no id; one is like %2</translation>
    </message>
    <message>
        <source>a second node of this id, after that at %1</source>
        <translation>a second node of this id, after that at %1</translation>
    </message>
    <message>
        <source>no node has the id %1</source>
        <translation>no node has the id %1</translation>
    </message>
</context>
<context>
    <name>Host::CSceneTabs</name>
    <message>
        <source>Close %1</source>
        <translation>Close %1</translation>
    </message>
    <message>
        <source>Connect a camera at the left to see it, or open a scene.
Ctrl+K finds every command.</source>
        <translation>Connect a camera at the left to see it, or open a scene.
Ctrl+K finds every command.</translation>
    </message>
</context>
<context>
    <name>Host::CSettingField</name>
    <message>
        <source>Back to the default, %1</source>
        <translation>Back to the default, %1</translation>
    </message>
    <message>
        <source>Default of %1</source>
        <translation>Default of %1</translation>
    </message>
</context>
<context>
    <name>Host::CSettingTexts</name>
    <message>
        <source>&apos;%1&apos; takes one of %2, not %3</source>
        <translation>&apos;%1&apos; takes one of %2, not %3</translation>
    </message>
    <message>
        <source>&apos;%1&apos; takes text, not %2</source>
        <translation>&apos;%1&apos; takes text, not %2</translation>
    </message>
    <message>
        <source>&apos;%1&apos; takes %2, not %3</source>
        <translation>&apos;%1&apos; takes %2, not %3</translation>
    </message>
    <message>
        <source>&apos;%1&apos; takes %2, %3, not %4</source>
        <comment>name, type, range</comment>
        <translation>&apos;%1&apos; takes %2, %3, not %4</translation>
    </message>
    <message>
        <source>the sink&apos;s name %1 makes no folder</source>
        <translation>the sink&apos;s name %1 makes no folder</translation>
    </message>
    <message>
        <source>&apos;%1&apos; cannot be set; a chain gives it</source>
        <translation>&apos;%1&apos; cannot be set; a chain gives it</translation>
    </message>
    <message>
        <source>it is gone</source>
        <translation>it is gone</translation>
    </message>
    <message>
        <source>it has no settings</source>
        <translation>it has no settings</translation>
    </message>
    <message>
        <source>it has no setting %1; it has %2</source>
        <translation>it has no setting %1; it has %2</translation>
    </message>
    <message>
        <source>it has no setting %1; %2 It has %3</source>
        <comment>%2 is a question</comment>
        <translation>it has no setting %1; %2 It has %3</translation>
    </message>
</context>
<context>
    <name>Host::CSettingsCheck</name>
    <message>
        <source>making %1</source>
        <translation>making %1</translation>
    </message>
    <message>
        <source>unknown key %1, which %2 does not keep</source>
        <translation>unknown key %1, which %2 does not keep</translation>
    </message>
    <message>
        <source>%1 for %2 is not taken; it stays %3</source>
        <translation>%1 for %2 is not taken; it stays %3</translation>
    </message>
    <message>
        <source>%1 has no setting %2, nor any other</source>
        <translation>%1 has no setting %2, nor any other</translation>
    </message>
    <message>
        <source>%1 has no setting %2</source>
        <translation>%1 has no setting %2</translation>
    </message>
    <message>
        <source>a value like %1</source>
        <translation>a value like %1</translation>
    </message>
    <message>
        <source>%1, where %2 belongs</source>
        <translation>%1, where %2 belongs</translation>
    </message>
    <message>
        <source>%1, where a rate above 0 belongs</source>
        <translation>%1, where a rate above 0 belongs</translation>
    </message>
    <message>
        <source>%1 refuses %2</source>
        <translation>%1 refuses %2</translation>
    </message>
    <message>
        <source>%1 takes %2, not %3</source>
        <translation>%1 takes %2, not %3</translation>
    </message>
    <message>
        <source>it stays %1</source>
        <translation>it stays %1</translation>
    </message>
</context>
<context>
    <name>Host::CSettingsPanel</name>
    <message>
        <source>Settings</source>
        <translation>Settings</translation>
    </message>
    <message>
        <source>This node has no settings.</source>
        <translation>This node has no settings.</translation>
    </message>
    <message>
        <source>Choose a node to see its settings.</source>
        <translation>Choose a node to see its settings.</translation>
    </message>
</context>
<context>
    <name>Host::CShapeCheck</name>
    <message>
        <source>a smaller number</source>
        <translation>a smaller number</translation>
    </message>
    <message>
        <source>a whole number</source>
        <translation>a whole number</translation>
    </message>
    <message>
        <source>true or false</source>
        <translation>true or false</translation>
    </message>
    <message>
        <source>an array</source>
        <translation>an array</translation>
    </message>
    <message>
        <source>an object</source>
        <translation>an object</translation>
    </message>
    <message>
        <source>a number</source>
        <translation>a number</translation>
    </message>
    <message>
        <source>a string</source>
        <translation>a string</translation>
    </message>
    <message>
        <source>%1 or %2</source>
        <comment>types of JSON</comment>
        <translation>%1 or %2</translation>
    </message>
    <message>
        <source>%1, where %2 belongs: %3</source>
        <translation>%1, where %2 belongs: %3</translation>
    </message>
    <message>
        <source>allowed are %1</source>
        <translation>allowed are %1</translation>
    </message>
    <message>
        <source>unknown key %1</source>
        <translation>unknown key %1</translation>
    </message>
    <message>
        <source>%1 lacks %2</source>
        <translation>%1 lacks %2</translation>
    </message>
    <message>
        <source>%1 is empty</source>
        <translation>%1 is empty</translation>
    </message>
    <message>
        <source>%1, where %2 belongs, from %3</source>
        <translation>%1, where %2 belongs, from %3</translation>
    </message>
</context>
<context>
    <name>Host::CSharedCamera</name>
    <message>
        <source>camera &apos;%1&apos; has gone</source>
        <translation>camera &apos;%1&apos; has gone</translation>
    </message>
</context>
<context>
    <name>Host::CStatisticsTable</name>
    <message>
        <source>Grey</source>
        <translation>Grey</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Blue</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Green</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Red</translation>
    </message>
    <message>
        <source>Statistics of the rectangle</source>
        <translation>Statistics of the rectangle</translation>
    </message>
    <message>
        <source>%1 × %2 at %3, %4</source>
        <translation>%1 × %2 at %3, %4</translation>
    </message>
    <message>
        <source>Mean</source>
        <translation>Mean</translation>
    </message>
    <message>
        <source>Min</source>
        <translation>Min</translation>
    </message>
    <message>
        <source>Max</source>
        <translation>Max</translation>
    </message>
    <message>
        <source>Deviation</source>
        <translation>Deviation</translation>
    </message>
</context>
<context>
    <name>Host::CSyntaxTexts</name>
    <message>
        <source>%1 is no quote of JSON, which has straight ones: &quot;</source>
        <translation>%1 is no quote of JSON, which has straight ones: &quot;</translation>
    </message>
    <message>
        <source>U+%1 looks like a blank, and is none of JSON</source>
        <translation>U+%1 looks like a blank, and is none of JSON</translation>
    </message>
    <message>
        <source>the document ends within the array that begins at %1</source>
        <translation>the document ends within the array that begins at %1</translation>
    </message>
    <message>
        <source>the document ends within the object that begins at %1</source>
        <translation>the document ends within the object that begins at %1</translation>
    </message>
    <message>
        <source>&apos;]&apos; belongs here, to close the array that begins at %1</source>
        <translation>&apos;]&apos; belongs here, to close the array that begins at %1</translation>
    </message>
    <message>
        <source>&apos;}&apos; belongs here, to close the object that begins at %1</source>
        <translation>&apos;}&apos; belongs here, to close the object that begins at %1</translation>
    </message>
    <message>
        <source>JSON has strings in double quotes only</source>
        <translation>JSON has strings in double quotes only</translation>
    </message>
    <message>
        <source>JSON has no comments</source>
        <translation>JSON has no comments</translation>
    </message>
    <message>
        <source>a value is missing before %1</source>
        <translation>a value is missing before %1</translation>
    </message>
    <message>
        <source>%1 is no number</source>
        <translation>%1 is no number</translation>
    </message>
    <message>
        <source>%1 is no value</source>
        <translation>%1 is no value</translation>
    </message>
    <message>
        <source>strings stand in double quotes</source>
        <translation>strings stand in double quotes</translation>
    </message>
    <message>
        <source>a key stands in double quotes</source>
        <translation>a key stands in double quotes</translation>
    </message>
    <message>
        <source>a key is missing before %1</source>
        <translation>a key is missing before %1</translation>
    </message>
    <message>
        <source>a number does not begin with 0</source>
        <translation>a number does not begin with 0</translation>
    </message>
    <message>
        <source>&apos;,&apos; or &apos;]&apos; is missing before this</source>
        <translation>&apos;,&apos; or &apos;]&apos; is missing before this</translation>
    </message>
    <message>
        <source>&apos;,&apos; or &apos;}&apos; is missing before this</source>
        <translation>&apos;,&apos; or &apos;}&apos; is missing before this</translation>
    </message>
    <message>
        <source>a string ends on the line where it begins; a line break in it is written \n</source>
        <translation>a string ends on the line where it begins; a line break in it is written \n</translation>
    </message>
    <message>
        <source>a control character in a string is written \u%1</source>
        <translation>a control character in a string is written \u%1</translation>
    </message>
    <message>
        <source>four digits belong behind \u, each from 0 to 9 or a to f</source>
        <translation>four digits belong behind \u, each from 0 to 9 or a to f</translation>
    </message>
    <message>
        <source>half a letter; \ud800 to \udfff stand in pairs</source>
        <translation>half a letter; \ud800 to \udfff stand in pairs</translation>
    </message>
    <message>
        <source>no such escape; a backslash itself is written \\</source>
        <translation>no such escape; a backslash itself is written \\</translation>
    </message>
    <message>
        <source>the document is empty</source>
        <translation>the document is empty</translation>
    </message>
    <message>
        <source>&apos;/&apos; is nothing that JSON has</source>
        <translation>&apos;/&apos; is nothing that JSON has</translation>
    </message>
    <message>
        <source>JSON has no comments, and this one has no end</source>
        <translation>JSON has no comments, and this one has no end</translation>
    </message>
    <message>
        <source>the document ends within a string</source>
        <translation>the document ends within a string</translation>
    </message>
    <message>
        <source>something stands behind the end of the document</source>
        <translation>something stands behind the end of the document</translation>
    </message>
    <message>
        <source>&apos;:&apos; is missing behind the key</source>
        <translation>&apos;:&apos; is missing behind the key</translation>
    </message>
    <message>
        <source>the number is too large</source>
        <translation>the number is too large</translation>
    </message>
    <message>
        <source>a digit belongs behind the point of a number</source>
        <translation>a digit belongs behind the point of a number</translation>
    </message>
    <message>
        <source>a digit belongs behind the &apos;e&apos; of a number</source>
        <translation>a digit belongs behind the &apos;e&apos; of a number</translation>
    </message>
    <message>
        <source>this is no JSON</source>
        <translation>this is no JSON</translation>
    </message>
</context>
<context>
    <name>Host::CTreeBuilder</name>
    <message>
        <source>%1 is no JSON: numbers are finite there</source>
        <translation>%1 is no JSON: numbers are finite there</translation>
    </message>
    <message>
        <source>arrays and objects nest too deep</source>
        <translation>arrays and objects nest too deep</translation>
    </message>
    <message>
        <source>a comma behind the last item is no JSON</source>
        <translation>a comma behind the last item is no JSON</translation>
    </message>
    <message>
        <source>a comma behind the last member is no JSON</source>
        <translation>a comma behind the last member is no JSON</translation>
    </message>
    <message>
        <source>more than %1 values</source>
        <translation>more than %1 values</translation>
    </message>
    <message>
        <source>JSON has no comments</source>
        <translation>JSON has no comments</translation>
    </message>
    <message>
        <source>a second key %1, after that at %2; only one would count</source>
        <translation>a second key %1, after that at %2; only one would count</translation>
    </message>
</context>
<context>
    <name>Host::CVideoFile</name>
    <message>
        <source>the image is empty</source>
        <translation>the image is empty</translation>
    </message>
    <message>
        <source>an image is %1, the video %2</source>
        <comment>width x height</comment>
        <translation>an image is %1, the video %2</translation>
    </message>
    <message>
        <source>No space left on device</source>
        <translation>No space left on device</translation>
    </message>
    <message>
        <source>the encoder refuses it</source>
        <translation>the encoder refuses it</translation>
    </message>
    <message>
        <source>it did not become complete; is the disk full?</source>
        <translation>it did not become complete; is the disk full?</translation>
    </message>
</context>
<context>
    <name>Host::CVideoReader</name>
    <message>
        <source>video %1</source>
        <comment>one that stands in for a camera</comment>
        <translation>video %1</translation>
    </message>
    <message>
        <source>cannot read the video %1: %2</source>
        <translation>cannot read the video %1: %2</translation>
    </message>
    <message>
        <source>cannot read the video %1: no video, or one in a format that is not known here</source>
        <translation>cannot read the video %1: no video, or one in a format that is not known here</translation>
    </message>
    <message>
        <source>no frame of the video %1 can be read</source>
        <translation>no frame of the video %1 can be read</translation>
    </message>
    <message>
        <source>the video %1 ends after %2 of %3 frames: a part of it is missing or broken</source>
        <translation>the video %1 ends after %2 of %3 frames: a part of it is missing or broken</translation>
    </message>
</context>
<context>
    <name>Host::CViewModel</name>
    <message>
        <source>Image view</source>
        <translation>Image view</translation>
    </message>
    <message>
        <source>This is no image that can be shown.</source>
        <translation>This is no image that can be shown.</translation>
    </message>
</context>
<context>
    <name>Host::CViewerDocks</name>
    <message>
        <source>Cameras</source>
        <translation>Cameras</translation>
    </message>
    <message>
        <source>Features</source>
        <translation>Features</translation>
    </message>
    <message>
        <source>Models</source>
        <translation>Models</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Settings</translation>
    </message>
    <message>
        <source>Faults</source>
        <translation>Faults</translation>
    </message>
    <message>
        <source>History</source>
        <translation>History</translation>
    </message>
    <message>
        <source>Before the first change</source>
        <translation>Before the first change</translation>
    </message>
    <message>
        <source>History of changes</source>
        <translation>History of changes</translation>
    </message>
</context>
<context>
    <name>Host::CViewerMenus</name>
    <message>
        <source>Undo</source>
        <translation>Undo</translation>
    </message>
    <message>
        <source>Undo: %1</source>
        <translation>Undo: %1</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Redo</translation>
    </message>
    <message>
        <source>Redo: %1</source>
        <translation>Redo: %1</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;File</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Edit</translation>
    </message>
    <message>
        <source>&amp;Cameras</source>
        <translation>&amp;Cameras</translation>
    </message>
    <message>
        <source>&amp;Graph</source>
        <translation>&amp;Graph</translation>
    </message>
    <message>
        <source>&amp;Images</source>
        <translation>&amp;Images</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;View</translation>
    </message>
    <message>
        <source>Open recent</source>
        <translation>Open recent</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>Colours</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Language</translation>
    </message>
    <message>
        <source>New scene</source>
        <translation>New scene</translation>
    </message>
    <message>
        <source>Previous scene</source>
        <translation>Previous scene</translation>
    </message>
    <message>
        <source>Next scene</source>
        <translation>Next scene</translation>
    </message>
    <message>
        <source>Open scene…</source>
        <translation>Open scene…</translation>
    </message>
    <message>
        <source>Save scene</source>
        <translation>Save scene</translation>
    </message>
    <message>
        <source>Save scene as…</source>
        <translation>Save scene as…</translation>
    </message>
    <message>
        <source>Import chain…</source>
        <translation>Import chain…</translation>
    </message>
    <message>
        <source>Close scene</source>
        <translation>Close scene</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quit</translation>
    </message>
    <message>
        <source>Show the camera&apos;s image</source>
        <translation>Show the camera&apos;s image</translation>
    </message>
    <message>
        <source>Commands…</source>
        <translation>Commands…</translation>
    </message>
    <message>
        <source>Full screen</source>
        <translation>Full screen</translation>
    </message>
    <message>
        <source>As the desktop</source>
        <translation>As the desktop</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Light</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Dark</translation>
    </message>
</context>
<context>
    <name>Host::CViewerStatus</name>
    <message>
        <source>The window was held up for %1 ms</source>
        <translation>The window was held up for %1 ms</translation>
    </message>
    <message>
        <source>%1 held up the window for %2 ms</source>
        <translation>%1 held up the window for %2 ms</translation>
    </message>
    <message>
        <source>No camera connected</source>
        <translation>No camera connected</translation>
    </message>
    <message>
        <source>Cameras streaming: %1 of %2 · %3 frames/s</source>
        <translation>Cameras streaming: %1 of %2 · %3 frames/s</translation>
    </message>
</context>
<context>
    <name>Host::CViewerWindow</name>
    <message>
        <source>Show the camera&apos;s image</source>
        <translation>Show the camera&apos;s image</translation>
    </message>
    <message>
        <source>Scene %1</source>
        <translation>Scene %1</translation>
    </message>
    <message>
        <source>There is no scene to open it in.</source>
        <translation>There is no scene to open it in.</translation>
    </message>
    <message>
        <source>Opened %1</source>
        <translation>Opened %1</translation>
    </message>
    <message>
        <source>There is no scene to save.</source>
        <translation>There is no scene to save.</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>Saved %1</translation>
    </message>
    <message>
        <source>A chain needs a scene: connect a camera first.</source>
        <translation>A chain needs a scene: connect a camera first.</translation>
    </message>
    <message>
        <source>Imported %1</source>
        <translation>Imported %1</translation>
    </message>
    <message>
        <source>Documents (*.json);;All files (*)</source>
        <translation>Documents (*.json);;All files (*)</translation>
    </message>
    <message>
        <source>Open scene</source>
        <translation>Open scene</translation>
    </message>
    <message>
        <source>Import chain</source>
        <translation>Import chain</translation>
    </message>
    <message>
        <source>Save scene</source>
        <translation>Save scene</translation>
    </message>
    <message>
        <source>%1 has changes that are not saved.</source>
        <translation>%1 has changes that are not saved.</translation>
    </message>
    <message>
        <source>Halvex Viewer</source>
        <translation>Halvex Viewer</translation>
    </message>
    <message>
        <source>Scenes</source>
        <translation>Scenes</translation>
    </message>
</context>
<context>
    <name>Host::CWordFinder</name>
    <message>
        <source>%1, %2</source>
        <comment>names that are listed</comment>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>there is only %1</source>
        <translation>there is only %1</translation>
    </message>
    <message>
        <source>there are %1</source>
        <translation>there are %1</translation>
    </message>
    <message>
        <source>%1 and %2</source>
        <comment>names that are listed</comment>
        <translation>%1 and %2</translation>
    </message>
    <message>
        <source>%1 or %2</source>
        <comment>names that are listed</comment>
        <translation>%1 or %2</translation>
    </message>
</context>
<context>
    <name>Host::ClosestWords</name>
    <message>
        <source>did you mean %1?</source>
        <translation>did you mean %1?</translation>
    </message>
    <message>
        <source>did you mean %1 or %2?</source>
        <translation>did you mean %1 or %2?</translation>
    </message>
    <message>
        <source>did you mean %1 or %2 or %3?</source>
        <translation>did you mean %1 or %2 or %3?</translation>
    </message>
    <message>
        <source>%1; %2</source>
        <comment>what is wrong; a question or a hint</comment>
        <translation>%1; %2</translation>
    </message>
</context>
<context>
    <name>Host::ConnectionText</name>
    <message>
        <source>%1 to %2</source>
        <comment>types of data</comment>
        <translation>%1 to %2</translation>
    </message>
</context>
<context>
    <name>Host::Device</name>
    <message>
        <source>cannot open camera &apos;%1&apos;: %2</source>
        <translation>cannot open camera &apos;%1&apos;: %2</translation>
    </message>
</context>
<context>
    <name>Host::DocumentFile</name>
    <message>
        <source>%1: it has 1 error:
%2</source>
        <comment>what cannot be done</comment>
        <translation>%1: it has 1 error:
%2</translation>
    </message>
    <message>
        <source>%1: it has %2 errors:
%3</source>
        <comment>what cannot be done</comment>
        <translation>%1: it has %2 errors:
%3</translation>
    </message>
</context>
<context>
    <name>Host::FaultReport</name>
    <message>
        <source>error</source>
        <translation>error</translation>
    </message>
    <message>
        <source>warning</source>
        <translation>warning</translation>
    </message>
</context>
<context>
    <name>Host::InputFile</name>
    <message>
        <source>it is larger than 64 MiB</source>
        <translation>it is larger than 64 MiB</translation>
    </message>
    <message>
        <source>cannot read &apos;%1&apos;: %2</source>
        <translation>cannot read &apos;%1&apos;: %2</translation>
    </message>
</context>
<context>
    <name>Host::JsonText</name>
    <message>
        <source>the file is %1; save it as UTF-8, which is what JSON is</source>
        <translation>the file is %1; save it as UTF-8, which is what JSON is</translation>
    </message>
    <message>
        <source>these bytes are no UTF-8</source>
        <translation>these bytes are no UTF-8</translation>
    </message>
    <message>
        <source>a zero byte, which no text has</source>
        <translation>a zero byte, which no text has</translation>
    </message>
</context>
<context>
    <name>Host::ModelText</name>
    <message>
        <source>Filters</source>
        <translation>Filters</translation>
    </message>
    <message>
        <source>Sinks</source>
        <translation>Sinks</translation>
    </message>
    <message>
        <source>Sources</source>
        <translation>Sources</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Tools</translation>
    </message>
    <message>
        <source>Blur</source>
        <translation>Blur</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Camera</translation>
    </message>
    <message>
        <source>Camera Source</source>
        <translation>Camera Source</translation>
    </message>
    <message>
        <source>DecouplerVGR</source>
        <translation>Decoupler for VGR</translation>
    </message>
    <message>
        <source>Edges</source>
        <translation>Edges</translation>
    </message>
    <message>
        <source>Histogram</source>
        <translation>Histogram</translation>
    </message>
    <message>
        <source>Image View</source>
        <translation>Image View</translation>
    </message>
    <message>
        <source>PNG Sink</source>
        <translation>PNG Sink</translation>
    </message>
    <message>
        <source>PNG files</source>
        <translation>PNG files</translation>
    </message>
    <message>
        <source>Raw Sink</source>
        <translation>Raw Sink</translation>
    </message>
    <message>
        <source>Raw files</source>
        <translation>Raw files</translation>
    </message>
    <message>
        <source>Threshold</source>
        <translation>Threshold</translation>
    </message>
    <message>
        <source>To Image</source>
        <translation>To image</translation>
    </message>
    <message>
        <source>To image</source>
        <translation>To image</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>Video</translation>
    </message>
    <message>
        <source>Video Sink</source>
        <translation>Video Sink</translation>
    </message>
    <message>
        <source>Frames per second</source>
        <translation>Frames per second</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>Level</translation>
    </message>
    <message>
        <source>Method</source>
        <translation>Method</translation>
    </message>
    <message>
        <source>Most waiting</source>
        <translation>Most waiting</translation>
    </message>
    <message>
        <source>Parallelism</source>
        <translation>Parallelism</translation>
    </message>
    <message>
        <source>Policy</source>
        <translation>Policy</translation>
    </message>
    <message>
        <source>Priority</source>
        <translation>Priority</translation>
    </message>
    <message>
        <source>Sink name</source>
        <translation>Sink name</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Size</translation>
    </message>
    <message>
        <source>View name</source>
        <translation>View name</translation>
    </message>
    <message>
        <source>Write every</source>
        <translation>Write every</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>Background</translation>
    </message>
    <message>
        <source>Box</source>
        <translation>Box</translation>
    </message>
    <message>
        <source>Canny</source>
        <translation>Canny</translation>
    </message>
    <message>
        <source>Drop newest</source>
        <translation>Drop newest</translation>
    </message>
    <message>
        <source>Drop oldest</source>
        <translation>Drop oldest</translation>
    </message>
    <message>
        <source>Fixed</source>
        <translation>Fixed</translation>
    </message>
    <message>
        <source>Gaussian</source>
        <translation>Gaussian</translation>
    </message>
    <message>
        <source>Median</source>
        <translation>Median</translation>
    </message>
    <message>
        <source>Newest wins</source>
        <translation>Newest wins</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>Otsu</source>
        <translation>Otsu</translation>
    </message>
    <message>
        <source>Sobel</source>
        <translation>Sobel</translation>
    </message>
    <message>
        <source>Background keeps one core free for what is recorded, as is right for previews.</source>
        <translation>Background keeps one core free for what is recorded, as is right for previews.</translation>
    </message>
    <message>
        <source>Canny draws thin lines, and follows an edge down to a third of &apos;level&apos;; Sobel draws all of it.</source>
        <translation>Canny draws thin lines, and follows an edge down to a third of &apos;level&apos;; Sobel draws all of it.</translation>
    </message>
    <message>
        <source>Gaussian keeps most detail, Box is fastest, Median removes single wrong pixels.</source>
        <translation>Gaussian keeps most detail, Box is fastest, Median removes single wrong pixels.</translation>
    </message>
    <message>
        <source>Grey values above it become white. Otsu does not ask for it.</source>
        <translation>Grey values above it become white. Otsu does not ask for it.</translation>
    </message>
    <message>
        <source>How fast the video plays.</source>
        <translation>How fast the video plays.</translation>
    </message>
    <message>
        <source>How much the grey value must change.</source>
        <translation>How much the grey value must change.</translation>
    </message>
    <message>
        <source>It writes one of so many frames; 0: as the run says, with --write-every.</source>
        <translation>It writes one of so many frames; 0: as the run says.</translation>
    </message>
    <message>
        <source>Otsu finds the threshold that separates each image best, Fixed takes &apos;level&apos;.</source>
        <translation>Otsu finds the threshold that separates each image best, Fixed takes &apos;level&apos;.</translation>
    </message>
    <message>
        <source>Pixels along each side of the square in which the change is looked for.</source>
        <translation>Pixels along each side of the square in which the change is looked for.</translation>
    </message>
    <message>
        <source>Pixels along each side of the square that a pixel is smoothed over.</source>
        <translation>Pixels along each side of the square that a pixel is smoothed over.</translation>
    </message>
    <message>
        <source>The name of its folder. A chain gives it.</source>
        <translation>The name of its folder. A chain gives it.</translation>
    </message>
    <message>
        <source>What stands above the image.</source>
        <translation>What stands above the image.</translation>
    </message>
</context>
<context>
    <name>Host::Output</name>
    <message>
        <source>cannot write &apos;%1&apos;: %2</source>
        <translation>cannot write &apos;%1&apos;: %2</translation>
    </message>
    <message>
        <source>cannot make the folder &apos;%1&apos;: %2</source>
        <translation>cannot make the folder &apos;%1&apos;: %2</translation>
    </message>
    <message>
        <source>Not a regular file</source>
        <translation>Not a regular file</translation>
    </message>
</context>
<context>
    <name>Host::SFault</name>
    <message>
        <source>A document can be read.</source>
        <translation>A document can be read.</translation>
    </message>
    <message>
        <source>A document is UTF-8.</source>
        <translation>A document is UTF-8.</translation>
    </message>
    <message>
        <source>A document is JSON.</source>
        <translation>A document is JSON.</translation>
    </message>
    <message>
        <source>A value has the JSON type that belongs there.</source>
        <translation>A value has the JSON type that belongs there.</translation>
    </message>
    <message>
        <source>A value is one of those that are allowed.</source>
        <translation>A value is one of those that are allowed.</translation>
    </message>
    <message>
        <source>Keys are known: one that nobody reads does nothing.</source>
        <translation>Keys are known: one that nobody reads does nothing.</translation>
    </message>
    <message>
        <source>A key stands only once in an object.</source>
        <translation>A key stands only once in an object.</translation>
    </message>
    <message>
        <source>What is needed is there.</source>
        <translation>What is needed is there.</translation>
    </message>
    <message>
        <source>A model is registered.</source>
        <translation>A model is registered.</translation>
    </message>
    <message>
        <source>A model can be made from the document.</source>
        <translation>A model can be made from the document.</translation>
    </message>
    <message>
        <source>A model has the setting and takes its value.</source>
        <translation>A model has the setting and takes its value.</translation>
    </message>
    <message>
        <source>A label or an id is that of an element or a node.</source>
        <translation>A label or an id is that of an element or a node.</translation>
    </message>
    <message>
        <source>Labels and ids are different.</source>
        <translation>Labels and ids are different.</translation>
    </message>
    <message>
        <source>A connection joins ports that exist.</source>
        <translation>A connection joins ports that exist.</translation>
    </message>
    <message>
        <source>The types of connected ports agree, or are converted.</source>
        <translation>The types of connected ports agree, or are converted.</translation>
    </message>
    <message>
        <source>A source is a camera or an element.</source>
        <translation>A source is a camera or an element.</translation>
    </message>
    <message>
        <source>Something is wired to each camera.</source>
        <translation>Something is wired to each camera.</translation>
    </message>
    <message>
        <source>The data of a source reaches each node.</source>
        <translation>The data of a source reaches each node.</translation>
    </message>
    <message>
        <source>Connections lead in a circle only through a decoupler.</source>
        <translation>Connections lead in a circle only through a decoupler.</translation>
    </message>
    <message>
        <source>Two ports are connected only once.</source>
        <translation>Two ports are connected only once.</translation>
    </message>
    <message>
        <source>The name of a sink makes a folder of its own.</source>
        <translation>The name of a sink makes a folder of its own.</translation>
    </message>
</context>
<context>
    <name>Host::SchemaTitle</name>
    <message>
        <source>a camera or a label</source>
        <translation>a camera or a label</translation>
    </message>
    <message>
        <source>a connection</source>
        <translation>a connection</translation>
    </message>
    <message>
        <source>a converter</source>
        <translation>a converter</translation>
    </message>
    <message>
        <source>a data type</source>
        <translation>a data type</translation>
    </message>
    <message>
        <source>a label</source>
        <translation>a label</translation>
    </message>
    <message>
        <source>a label, or an object with one</source>
        <translation>a label, or an object with one</translation>
    </message>
    <message>
        <source>a model</source>
        <translation>a model</translation>
    </message>
    <message>
        <source>a node</source>
        <translation>a node</translation>
    </message>
    <message>
        <source>a scene</source>
        <translation>a scene</translation>
    </message>
    <message>
        <source>a unique name</source>
        <translation>a unique name</translation>
    </message>
    <message>
        <source>an element</source>
        <translation>an element</translation>
    </message>
    <message>
        <source>an id</source>
        <translation>an id</translation>
    </message>
    <message>
        <source>an input port</source>
        <translation>an input port</translation>
    </message>
    <message>
        <source>an output port</source>
        <translation>an output port</translation>
    </message>
    <message>
        <source>arrays of what it feeds</source>
        <translation>arrays of what it feeds</translation>
    </message>
    <message>
        <source>the connections</source>
        <translation>the connections</translation>
    </message>
    <message>
        <source>the elements of a chain</source>
        <translation>the elements of a chain</translation>
    </message>
    <message>
        <source>the id of a type</source>
        <translation>the id of a type</translation>
    </message>
    <message>
        <source>the id of the node that feeds</source>
        <translation>the id of the node that feeds</translation>
    </message>
    <message>
        <source>the id of the node that is fed</source>
        <translation>the id of the node that is fed</translation>
    </message>
    <message>
        <source>the label</source>
        <translation>the label</translation>
    </message>
    <message>
        <source>the name of a model</source>
        <translation>the name of a model</translation>
    </message>
    <message>
        <source>the nodes</source>
        <translation>the nodes</translation>
    </message>
    <message>
        <source>the schema, for editors</source>
        <translation>the schema, for editors</translation>
    </message>
    <message>
        <source>the settings of the model</source>
        <translation>the settings of the model</translation>
    </message>
    <message>
        <source>the short name of a type</source>
        <translation>the short name of a type</translation>
    </message>
    <message>
        <source>the sources of each input port</source>
        <translation>the sources of each input port</translation>
    </message>
    <message>
        <source>the sources of one input port</source>
        <translation>the sources of one input port</translation>
    </message>
    <message>
        <source>what it feeds</source>
        <translation>what it feeds</translation>
    </message>
    <message>
        <source>whether it is unique</source>
        <translation>whether it is unique</translation>
    </message>
</context>
<context>
    <name>Host::SettingProperty</name>
    <message>
        <source>true or false</source>
        <translation>true or false</translation>
    </message>
    <message>
        <source>a whole number</source>
        <translation>a whole number</translation>
    </message>
    <message>
        <source>a number</source>
        <translation>a number</translation>
    </message>
    <message>
        <source>a string</source>
        <translation>a string</translation>
    </message>
    <message>
        <source>one of %1</source>
        <translation>one of %1</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>a type and its range</comment>
        <translation>%1, %2</translation>
    </message>
</context>
<context>
    <name>Host::SettingRange</name>
    <message>
        <source>from %1</source>
        <translation>from %1</translation>
    </message>
    <message>
        <source>%1 to %2, odd</source>
        <translation>%1 to %2, odd</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 to %2</translation>
    </message>
</context>
<context>
    <name>Host::Shown</name>
    <message>
        <source>&apos;%1&apos;</source>
        <translation>&apos;%1&apos;</translation>
    </message>
</context>
<context>
    <name>Host::WritePng</name>
    <message>
        <source>the image has no PNG form</source>
        <translation>the image has no PNG form</translation>
    </message>
</context>
<context>
    <name>Host::attempt</name>
    <message>
        <source>%1 fails</source>
        <translation>%1 fails</translation>
    </message>
    <message>
        <source>%1 throws: %2</source>
        <translation>%1 throws: %2</translation>
    </message>
    <message>
        <source>%1 throws</source>
        <translation>%1 throws</translation>
    </message>
</context>
</TS>
