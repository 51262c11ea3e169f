<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
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
        <source>%1 of %2 /s shown</source>
        <translation>%1 of %2 /s shown</translation>
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
        <source>cannot open</source>
        <translation>cannot open</translation>
    </message>
    <message>
        <source>the scene is gone</source>
        <translation>the scene is gone</translation>
    </message>
    <message>
        <source>cannot import</source>
        <translation>cannot import</translation>
    </message>
    <message>
        <source>nothing of &apos;%1&apos; could be made</source>
        <translation>nothing of &apos;%1&apos; could be made</translation>
    </message>
    <message>
        <source>the scene cannot be cleared</source>
        <translation>the scene cannot be cleared</translation>
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
    <message>
        <source>from %1</source>
        <translation>from %1</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 to %2</translation>
    </message>
    <message>
        <source>%1, odd</source>
        <translation>%1, odd</translation>
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
        <translation>DecouplerVGR</translation>
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
        <translation>To Image</translation>
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
        <translation>It writes one of so many frames; 0: as the run says, with --write-every.</translation>
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
</TS>
