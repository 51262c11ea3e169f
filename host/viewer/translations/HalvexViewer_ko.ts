<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko" sourcelanguage="en">
<context>
    <name>Host::CCameraList</name>
    <message>
        <source>Simulated camera</source>
        <translation>시뮬레이션 카메라</translation>
    </message>
    <message>
        <source>Free</source>
        <translation>사용 가능</translation>
    </message>
    <message>
        <source>Connecting</source>
        <translation>연결하는 중</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>연결됨</translation>
    </message>
    <message>
        <source>Streaming</source>
        <translation>스트리밍 중</translation>
    </message>
    <message>
        <source>Gone, waiting for it</source>
        <translation>사라짐, 다시 나타나기를 기다리는 중</translation>
    </message>
    <message>
        <source>In use by another program</source>
        <translation>다른 프로그램에서 사용 중</translation>
    </message>
    <message>
        <source>Cannot be opened</source>
        <translation>열 수 없음</translation>
    </message>
    <message>
        <source>%1 frames/s · %2 frames</source>
        <translation>초당 %1프레임 · %2프레임</translation>
    </message>
</context>
<context>
    <name>Host::CCameraPanel</name>
    <message>
        <source>Folder with images</source>
        <translation>이미지 폴더</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>동영상</translation>
    </message>
    <message>
        <source>Videos (*.avi *.mkv *.mp4 *.mov);;All files (*)</source>
        <translation>동영상 (*.avi *.mkv *.mp4 *.mov);;모든 파일 (*)</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>연결</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>시작</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>정지</translation>
    </message>
    <message>
        <source>Single frame</source>
        <translation>한 프레임</translation>
    </message>
    <message>
        <source>Trigger</source>
        <translation>트리거</translation>
    </message>
    <message>
        <source>Disconnect</source>
        <translation>연결 끊기</translation>
    </message>
    <message>
        <source>Open images as a camera…</source>
        <translation>이미지를 카메라로 열기…</translation>
    </message>
    <message>
        <source>Open a video as a camera…</source>
        <translation>동영상을 카메라로 열기…</translation>
    </message>
    <message>
        <source>Cameras</source>
        <translation>카메라</translation>
    </message>
    <message>
        <source>Message of the camera</source>
        <translation>카메라 메시지</translation>
    </message>
</context>
<context>
    <name>Host::CCameraSession</name>
    <message>
        <source>The graph has no place for this camera: its node was removed.</source>
        <translation>그래프에 이 카메라의 자리가 없습니다. 노드가 제거되었습니다.</translation>
    </message>
</context>
<context>
    <name>Host::CCommandPalette</name>
    <message>
        <source>Commands</source>
        <translation>명령</translation>
    </message>
    <message>
        <source>What do you want to do?</source>
        <translation>무엇을 하시겠습니까?</translation>
    </message>
    <message>
        <source>Search commands</source>
        <translation>명령 검색</translation>
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
        <translation>오류</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>경고</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>종류</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>위치</translation>
    </message>
    <message>
        <source>What is wrong</source>
        <translation>내용</translation>
    </message>
</context>
<context>
    <name>Host::CFaultPanel</name>
    <message>
        <source>line %1, column %2</source>
        <translation>%1행 %2열</translation>
    </message>
    <message>
        <source>scene</source>
        <translation>장면</translation>
    </message>
    <message>
        <source>Check</source>
        <translation>검사</translation>
    </message>
    <message>
        <source>What the check found</source>
        <translation>검사 결과</translation>
    </message>
    <message>
        <source>Nothing has been checked yet.</source>
        <translation>아직 검사하지 않았습니다.</translation>
    </message>
    <message>
        <source>No faults were found.</source>
        <translation>문제를 찾지 못했습니다.</translation>
    </message>
    <message>
        <source>Errors: %1, warnings: %2</source>
        <translation>오류: %1, 경고: %2</translation>
    </message>
</context>
<context>
    <name>Host::CFeatureEditor</name>
    <message>
        <source>Run</source>
        <translation>실행</translation>
    </message>
    <message>
        <source>Cannot be changed now</source>
        <translation>지금은 변경할 수 없습니다</translation>
    </message>
</context>
<context>
    <name>Host::CFeaturePanel</name>
    <message>
        <source>Connect a camera to see its features.</source>
        <translation>카메라를 연결하면 기능이 표시됩니다.</translation>
    </message>
    <message>
        <source>Files have no features.</source>
        <translation>파일에는 기능이 없습니다.</translation>
    </message>
    <message>
        <source>Read features again</source>
        <translation>기능 다시 읽기</translation>
    </message>
    <message>
        <source>Search features</source>
        <translation>기능 검색</translation>
    </message>
    <message>
        <source>Features of the camera</source>
        <translation>카메라 기능</translation>
    </message>
    <message>
        <source>Message of the camera</source>
        <translation>카메라 메시지</translation>
    </message>
</context>
<context>
    <name>Host::CGraphActions</name>
    <message>
        <source>Undo %1</source>
        <translation>실행 취소: %1</translation>
    </message>
    <message>
        <source>Redo %1</source>
        <translation>다시 실행: %1</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>잘라내기</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>복사</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>붙여넣기</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>복제</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>삭제</translation>
    </message>
    <message>
        <source>Select all nodes</source>
        <translation>모든 노드 선택</translation>
    </message>
    <message>
        <source>Connect…</source>
        <translation>연결…</translation>
    </message>
    <message>
        <source>Arrange</source>
        <translation>정렬</translation>
    </message>
    <message>
        <source>Find a node…</source>
        <translation>노드 찾기…</translation>
    </message>
    <message>
        <source>Show all</source>
        <translation>전체 보기</translation>
    </message>
    <message>
        <source>Actual size</source>
        <translation>실제 크기</translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation>확대</translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation>축소</translation>
    </message>
    <message>
        <source>Overview</source>
        <translation>개요</translation>
    </message>
</context>
<context>
    <name>Host::CGraphEditor</name>
    <message>
        <source>&apos;%1&apos; was removed at once</source>
        <translation>&apos;%1&apos;이(가) 즉시 제거되었습니다</translation>
    </message>
    <message>
        <source>&apos;%1&apos; cannot be added: %2</source>
        <translation>&apos;%1&apos;을(를) 추가할 수 없습니다: %2</translation>
    </message>
    <message>
        <source>Add &apos;%1&apos;</source>
        <translation>&apos;%1&apos; 추가</translation>
    </message>
    <message>
        <source>&apos;%1&apos; stays: it is what the scene was made for</source>
        <translation>&apos;%1&apos;은(는) 남습니다. 장면이 이것을 위해 만들어졌습니다</translation>
    </message>
    <message>
        <source>These ports do not fit</source>
        <translation>이 포트들은 서로 맞지 않습니다</translation>
    </message>
    <message>
        <source>The connection</source>
        <translation>연결</translation>
    </message>
    <message>
        <source>The connection was removed at once</source>
        <translation>연결이 즉시 제거되었습니다</translation>
    </message>
    <message>
        <source>Connect &apos;%1&apos; to &apos;%2&apos;</source>
        <translation>&apos;%1&apos;을(를) &apos;%2&apos;에 연결</translation>
    </message>
    <message>
        <source>Set %1 of &apos;%2&apos; to %3</source>
        <translation>&apos;%2&apos;의 %1을(를) %3(으)로 설정</translation>
    </message>
    <message numerus="yes">
        <source>Move %n nodes</source>
        <translation>
            <numerusform>노드 %n개 이동</numerusform>
        </translation>
    </message>
    <message>
        <source>Move &apos;%1&apos;</source>
        <translation>&apos;%1&apos; 이동</translation>
    </message>
    <message>
        <source>The scene is gone</source>
        <translation>장면이 더 이상 없습니다</translation>
    </message>
    <message numerus="yes">
        <source>Not everything could be brought back: %n parts are missing</source>
        <translation>
            <numerusform>모두 되돌리지 못했습니다. %n개가 빠졌습니다</numerusform>
        </translation>
    </message>
    <message>
        <source>The node of this step is gone</source>
        <translation>이 단계의 노드가 더 이상 없습니다</translation>
    </message>
    <message>
        <source>Delete a connection</source>
        <translation>연결 삭제</translation>
    </message>
    <message numerus="yes">
        <source>Delete %n connections</source>
        <translation>
            <numerusform>연결 %n개 삭제</numerusform>
        </translation>
    </message>
    <message>
        <source>Delete &apos;%1&apos;</source>
        <translation>&apos;%1&apos; 삭제</translation>
    </message>
    <message numerus="yes">
        <source>Delete %n nodes</source>
        <translation>
            <numerusform>노드 %n개 삭제</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 with a connection</source>
        <translation>%1 (연결 1개)</translation>
    </message>
    <message numerus="yes">
        <source>%1 with %n connections</source>
        <translation>
            <numerusform>%1 (연결 %n개)</numerusform>
        </translation>
    </message>
    <message>
        <source>There is nothing that can be there twice</source>
        <translation>복제할 수 있는 것이 없습니다</translation>
    </message>
    <message numerus="yes">
        <source>Duplicate %n nodes</source>
        <translation>
            <numerusform>노드 %n개 복제</numerusform>
        </translation>
    </message>
    <message>
        <source>Duplicate &apos;%1&apos;</source>
        <translation>&apos;%1&apos; 복제</translation>
    </message>
    <message>
        <source>There are no nodes in the text</source>
        <translation>텍스트에 노드가 없습니다</translation>
    </message>
    <message numerus="yes">
        <source>Paste %n nodes</source>
        <translation>
            <numerusform>노드 %n개 붙여넣기</numerusform>
        </translation>
    </message>
    <message>
        <source>Paste a node</source>
        <translation>노드 붙여넣기</translation>
    </message>
    <message>
        <source>Only a scene of the service takes chains</source>
        <translation>서비스의 장면만 체인을 받을 수 있습니다</translation>
    </message>
    <message>
        <source>The chain names a model that there is not</source>
        <translation>체인이 존재하지 않는 모델을 지정합니다</translation>
    </message>
    <message>
        <source>There is no chain in the text</source>
        <translation>텍스트에 체인이 없습니다</translation>
    </message>
    <message numerus="yes">
        <source>Import %n nodes</source>
        <translation>
            <numerusform>노드 %n개 가져오기</numerusform>
        </translation>
    </message>
    <message>
        <source>Import a node</source>
        <translation>노드 가져오기</translation>
    </message>
</context>
<context>
    <name>Host::CGraphOverview</name>
    <message>
        <source>Overview of the graph</source>
        <translation>그래프 개요</translation>
    </message>
    <message>
        <source>Click to go there</source>
        <translation>클릭하여 이동</translation>
    </message>
</context>
<context>
    <name>Host::CGraphSearch</name>
    <message>
        <source>none</source>
        <translation>없음</translation>
    </message>
    <message>
        <source>%1 / %2</source>
        <translation>%1 / %2</translation>
    </message>
    <message>
        <source>Find a node</source>
        <translation>노드 찾기</translation>
    </message>
</context>
<context>
    <name>Host::CGraphView</name>
    <message>
        <source>Graph</source>
        <translation>그래프</translation>
    </message>
</context>
<context>
    <name>Host::CHistogramView</name>
    <message>
        <source>Histogram</source>
        <translation>히스토그램</translation>
    </message>
    <message>
        <source>How often each value occurs in what is seen, or in the rectangle. The lines stand at the values that are shown as black and as white.</source>
        <translation>보이는 영역 또는 사각형 안에서 각 값이 나타나는 횟수입니다. 선은 검정과 흰색으로 표시되는 값을 나타냅니다.</translation>
    </message>
</context>
<context>
    <name>Host::CImageActions</name>
    <message>
        <source>Fit</source>
        <translation>맞춤</translation>
    </message>
    <message>
        <source>Show all of the image</source>
        <translation>이미지 전체 보기</translation>
    </message>
    <message>
        <source>1:1</source>
        <translation>1:1</translation>
    </message>
    <message>
        <source>Show each pixel as one pixel of the screen</source>
        <translation>이미지 한 픽셀을 화면 한 픽셀로 보기</translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation>확대</translation>
    </message>
    <message>
        <source>Show the image larger</source>
        <translation>이미지를 크게 보기</translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation>축소</translation>
    </message>
    <message>
        <source>Show the image smaller</source>
        <translation>이미지를 작게 보기</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>사각형</translation>
    </message>
    <message>
        <source>Draw a rectangle to measure in</source>
        <translation>측정할 사각형 그리기</translation>
    </message>
    <message>
        <source>Plain</source>
        <translation>원본</translation>
    </message>
    <message>
        <source>Show the image as it is</source>
        <translation>이미지를 그대로 보기</translation>
    </message>
    <message>
        <source>Heat</source>
        <translation>열</translation>
    </message>
    <message>
        <source>Show dark as black and purple, bright as yellow</source>
        <translation>어두운 값은 검정과 보라, 밝은 값은 노랑으로 보기</translation>
    </message>
    <message>
        <source>Spectrum</source>
        <translation>스펙트럼</translation>
    </message>
    <message>
        <source>Show dark as blue, bright as red</source>
        <translation>어두운 값은 파랑, 밝은 값은 빨강으로 보기</translation>
    </message>
    <message>
        <source>Limits</source>
        <translation>한계값</translation>
    </message>
    <message>
        <source>Show black as blue and white as red</source>
        <translation>검정은 파랑, 흰색은 빨강으로 보기</translation>
    </message>
    <message>
        <source>Full range</source>
        <translation>전체 범위</translation>
    </message>
    <message>
        <source>Show all values that the camera has</source>
        <translation>카메라의 모든 값 보기</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>자동</translation>
    </message>
    <message>
        <source>Show the values that occur, from black to white</source>
        <translation>나타나는 값을 검정에서 흰색까지로 보기</translation>
    </message>
    <message>
        <source>Manual</source>
        <translation>수동</translation>
    </message>
    <message>
        <source>Choose which values are black and white</source>
        <translation>검정과 흰색으로 할 값 선택</translation>
    </message>
    <message>
        <source>Histogram</source>
        <translation>히스토그램</translation>
    </message>
    <message>
        <source>Show how often each value occurs</source>
        <translation>각 값이 나타나는 횟수 보기</translation>
    </message>
    <message>
        <source>Logarithmic histogram</source>
        <translation>로그 히스토그램</translation>
    </message>
    <message>
        <source>Show rare values of the histogram, too</source>
        <translation>히스토그램의 드문 값도 보기</translation>
    </message>
    <message>
        <source>Save image…</source>
        <translation>이미지 저장…</translation>
    </message>
    <message>
        <source>Save the image in the camera&apos;s full depth</source>
        <translation>이미지를 카메라의 전체 비트 심도로 저장</translation>
    </message>
    <message>
        <source>Save view…</source>
        <translation>보이는 화면 저장…</translation>
    </message>
    <message>
        <source>Save what is seen</source>
        <translation>보이는 것을 저장</translation>
    </message>
    <message>
        <source>Copy view</source>
        <translation>보이는 화면 복사</translation>
    </message>
    <message>
        <source>Copy what is seen</source>
        <translation>보이는 것을 복사</translation>
    </message>
    <message>
        <source>Record PNG files</source>
        <translation>PNG 파일로 기록</translation>
    </message>
    <message>
        <source>Write each image into a PNG file</source>
        <translation>각 이미지를 PNG 파일로 쓰기</translation>
    </message>
    <message>
        <source>Record raw files</source>
        <translation>RAW 파일로 기록</translation>
    </message>
    <message>
        <source>Write the values of each image into a file</source>
        <translation>각 이미지의 값을 파일로 쓰기</translation>
    </message>
    <message>
        <source>Record video</source>
        <translation>동영상으로 기록</translation>
    </message>
    <message>
        <source>Write the images into a video</source>
        <translation>이미지를 동영상으로 쓰기</translation>
    </message>
    <message>
        <source>Recording folder…</source>
        <translation>기록 폴더…</translation>
    </message>
    <message>
        <source>Choose where recordings are written</source>
        <translation>기록을 쓸 위치 선택</translation>
    </message>
    <message>
        <source>Stop recording</source>
        <translation>기록 중지</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>색상</translation>
    </message>
    <message>
        <source>False colours</source>
        <translation>유사 색상</translation>
    </message>
    <message>
        <source>Black and white</source>
        <translation>검정과 흰색</translation>
    </message>
    <message>
        <source>Which values are black and white</source>
        <translation>검정과 흰색으로 할 값</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>저장</translation>
    </message>
    <message>
        <source>Save the image</source>
        <translation>이미지 저장</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>기록</translation>
    </message>
    <message>
        <source>Record the images</source>
        <translation>이미지 기록</translation>
    </message>
</context>
<context>
    <name>Host::CImageDock</name>
    <message>
        <source>Copied %1 × %2 pixels</source>
        <translation>%1 × %2픽셀을 복사했습니다</translation>
    </message>
    <message>
        <source>Recording folder</source>
        <translation>기록 폴더</translation>
    </message>
    <message>
        <source>Image tools</source>
        <translation>이미지 도구</translation>
    </message>
</context>
<context>
    <name>Host::CImageSaver</name>
    <message>
        <source>Save image</source>
        <translation>이미지 저장</translation>
    </message>
    <message>
        <source>image-%1</source>
        <translation>image-%1</translation>
    </message>
    <message>
        <source>Save view</source>
        <translation>보이는 화면 저장</translation>
    </message>
    <message>
        <source>view</source>
        <translation>view</translation>
    </message>
    <message>
        <source>PNG images (*.png)</source>
        <translation>PNG 이미지 (*.png)</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 저장됨</translation>
    </message>
    <message>
        <source>Cannot save %1: %2</source>
        <translation>%1을(를) 저장할 수 없습니다: %2</translation>
    </message>
</context>
<context>
    <name>Host::CImageStatus</name>
    <message>
        <source>Image status</source>
        <translation>이미지 상태</translation>
    </message>
    <message>
        <source>Value under the cursor</source>
        <translation>커서 위치의 값</translation>
    </message>
    <message>
        <source>Rates</source>
        <translation>속도</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>메시지</translation>
    </message>
    <message>
        <source>%1 of %2 /s shown</source>
        <translation>초당 %2 중 %1 표시</translation>
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
        <translation>이미지</translation>
    </message>
    <message>
        <source>Arrow keys move the view, with Alt the pixel whose value is told, with Ctrl the rectangle, with Shift its corner.</source>
        <translation>화살표 키로 보기를 옮기고, Alt로 값을 알려 주는 픽셀, Ctrl로 사각형, Shift로 사각형의 모서리를 옮깁니다.</translation>
    </message>
    <message>
        <source>No image</source>
        <translation>이미지 없음</translation>
    </message>
</context>
<context>
    <name>Host::CModelPalette</name>
    <message>
        <source>Models</source>
        <translation>모델</translation>
    </message>
    <message>
        <source>Search models</source>
        <translation>모델 검색</translation>
    </message>
    <message>
        <source>Models by category</source>
        <translation>분류별 모델</translation>
    </message>
</context>
<context>
    <name>Host::CNodeTexts</name>
    <message>
        <source>received</source>
        <translation>받음</translation>
    </message>
    <message>
        <source>emitted</source>
        <translation>내보냄</translation>
    </message>
    <message>
        <source>dropped</source>
        <translation>버림</translation>
    </message>
    <message>
        <source>pending</source>
        <translation>대기</translation>
    </message>
    <message>
        <source>rate</source>
        <translation>속도</translation>
    </message>
    <message>
        <source>%1 fps</source>
        <translation>%1 fps</translation>
    </message>
    <message>
        <source>work</source>
        <translation>작업</translation>
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
        <translation>검정과 흰색</translation>
    </message>
    <message>
        <source>&amp;Black</source>
        <translation>검정(&amp;B)</translation>
    </message>
    <message>
        <source>&amp;White</source>
        <translation>흰색(&amp;W)</translation>
    </message>
    <message>
        <source>Value shown as black</source>
        <translation>검정으로 표시할 값</translation>
    </message>
    <message>
        <source>Value shown as white</source>
        <translation>흰색으로 표시할 값</translation>
    </message>
</context>
<context>
    <name>Host::CRecordBar</name>
    <message>
        <source>Recording</source>
        <translation>기록 중</translation>
    </message>
    <message>
        <source>Finishing, %1 waiting</source>
        <translation>마무리 중, %1개 대기</translation>
    </message>
    <message>
        <source>Recorded</source>
        <translation>기록됨</translation>
    </message>
    <message>
        <source>Recording ended</source>
        <translation>기록이 끝났습니다</translation>
    </message>
    <message>
        <source>Not recorded</source>
        <translation>기록되지 않음</translation>
    </message>
    <message>
        <source>Counts of the recording</source>
        <translation>기록 개수</translation>
    </message>
    <message>
        <source>Folder or error of the recording</source>
        <translation>기록의 폴더 또는 오류</translation>
    </message>
    <message>
        <source>Hide the recording&apos;s counts</source>
        <translation>기록 개수 숨기기</translation>
    </message>
    <message>
        <source>%1 received · %2 written · %3 dropped</source>
        <translation>받음 %1 · 기록 %2 · 버림 %3</translation>
    </message>
</context>
<context>
    <name>Host::CRecorder</name>
    <message>
        <source>No folder can be made in %1.</source>
        <translation>%1에 폴더를 만들 수 없습니다.</translation>
    </message>
</context>
<context>
    <name>Host::CSceneFiles</name>
    <message>
        <source>the scene has no camera</source>
        <translation>장면에 카메라가 없습니다</translation>
    </message>
    <message>
        <source>cannot open</source>
        <translation>열 수 없습니다</translation>
    </message>
    <message>
        <source>the scene is gone</source>
        <translation>장면이 더 이상 없습니다</translation>
    </message>
    <message>
        <source>cannot import</source>
        <translation>가져올 수 없습니다</translation>
    </message>
    <message>
        <source>nothing of &apos;%1&apos; could be made</source>
        <translation>‘%1’의 요소를 하나도 만들 수 없었습니다</translation>
    </message>
    <message>
        <source>the scene cannot be cleared</source>
        <translation>장면을 비울 수 없습니다</translation>
    </message>
</context>
<context>
    <name>Host::CSceneTabs</name>
    <message>
        <source>Close %1</source>
        <translation>%1 닫기</translation>
    </message>
    <message>
        <source>Connect a camera at the left to see it, or open a scene.
Ctrl+K finds every command.</source>
        <translation>왼쪽에서 카메라를 연결하거나 장면을 여세요.
Ctrl+K로 모든 명령을 찾을 수 있습니다.</translation>
    </message>
</context>
<context>
    <name>Host::CSettingField</name>
    <message>
        <source>Back to the default, %1</source>
        <translation>기본값 %1(으)로 되돌리기</translation>
    </message>
    <message>
        <source>Default of %1</source>
        <translation>%1의 기본값</translation>
    </message>
    <message>
        <source>from %1</source>
        <translation>%1 이상</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1~%2</translation>
    </message>
    <message>
        <source>%1, odd</source>
        <translation>%1, 홀수</translation>
    </message>
</context>
<context>
    <name>Host::CSettingsPanel</name>
    <message>
        <source>Settings</source>
        <translation>설정</translation>
    </message>
    <message>
        <source>This node has no settings.</source>
        <translation>이 노드에는 설정이 없습니다.</translation>
    </message>
    <message>
        <source>Choose a node to see its settings.</source>
        <translation>노드를 선택하면 설정이 표시됩니다.</translation>
    </message>
</context>
<context>
    <name>Host::CStatisticsTable</name>
    <message>
        <source>Grey</source>
        <translation>회색</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>파랑</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>초록</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>빨강</translation>
    </message>
    <message>
        <source>Statistics of the rectangle</source>
        <translation>사각형의 통계</translation>
    </message>
    <message>
        <source>%1 × %2 at %3, %4</source>
        <translation>%1 × %2, 위치 %3, %4</translation>
    </message>
    <message>
        <source>Mean</source>
        <translation>평균</translation>
    </message>
    <message>
        <source>Min</source>
        <translation>최소</translation>
    </message>
    <message>
        <source>Max</source>
        <translation>최대</translation>
    </message>
    <message>
        <source>Deviation</source>
        <translation>편차</translation>
    </message>
</context>
<context>
    <name>Host::CViewModel</name>
    <message>
        <source>Image view</source>
        <translation>이미지 보기</translation>
    </message>
    <message>
        <source>This is no image that can be shown.</source>
        <translation>표시할 수 있는 이미지가 아닙니다.</translation>
    </message>
</context>
<context>
    <name>Host::CViewerDocks</name>
    <message>
        <source>Cameras</source>
        <translation>카메라</translation>
    </message>
    <message>
        <source>Features</source>
        <translation>기능</translation>
    </message>
    <message>
        <source>Models</source>
        <translation>모델</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>설정</translation>
    </message>
    <message>
        <source>Faults</source>
        <translation>문제</translation>
    </message>
    <message>
        <source>History</source>
        <translation>기록 내역</translation>
    </message>
    <message>
        <source>Before the first change</source>
        <translation>첫 변경 전</translation>
    </message>
    <message>
        <source>History of changes</source>
        <translation>변경 내역</translation>
    </message>
</context>
<context>
    <name>Host::CViewerMenus</name>
    <message>
        <source>Undo</source>
        <translation>실행 취소</translation>
    </message>
    <message>
        <source>Undo: %1</source>
        <translation>실행 취소: %1</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>다시 실행</translation>
    </message>
    <message>
        <source>Redo: %1</source>
        <translation>다시 실행: %1</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>파일(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>편집(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Cameras</source>
        <translation>카메라(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Graph</source>
        <translation>그래프(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Images</source>
        <translation>이미지(&amp;I)</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>보기(&amp;V)</translation>
    </message>
    <message>
        <source>Open recent</source>
        <translation>최근 파일 열기</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>색상</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>언어</translation>
    </message>
    <message>
        <source>New scene</source>
        <translation>새 장면</translation>
    </message>
    <message>
        <source>Open scene…</source>
        <translation>장면 열기…</translation>
    </message>
    <message>
        <source>Save scene</source>
        <translation>장면 저장</translation>
    </message>
    <message>
        <source>Save scene as…</source>
        <translation>다른 이름으로 장면 저장…</translation>
    </message>
    <message>
        <source>Import chain…</source>
        <translation>체인 가져오기…</translation>
    </message>
    <message>
        <source>Close scene</source>
        <translation>장면 닫기</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>끝내기</translation>
    </message>
    <message>
        <source>Show the camera&apos;s image</source>
        <translation>카메라 이미지 보기</translation>
    </message>
    <message>
        <source>Commands…</source>
        <translation>명령…</translation>
    </message>
    <message>
        <source>Full screen</source>
        <translation>전체 화면</translation>
    </message>
    <message>
        <source>As the desktop</source>
        <translation>바탕 화면 설정에 맞춤</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>밝게</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>어둡게</translation>
    </message>
</context>
<context>
    <name>Host::CViewerStatus</name>
    <message>
        <source>The window was held up for %1 ms</source>
        <translation>창이 %1 ms 동안 멈췄습니다</translation>
    </message>
    <message>
        <source>%1 held up the window for %2 ms</source>
        <translation>%1이(가) 창을 %2 ms 동안 멈췄습니다</translation>
    </message>
    <message>
        <source>No camera connected</source>
        <translation>연결된 카메라 없음</translation>
    </message>
    <message>
        <source>Cameras streaming: %1 of %2 · %3 frames/s</source>
        <translation>스트리밍 중인 카메라: %2대 중 %1대 · 초당 %3프레임</translation>
    </message>
</context>
<context>
    <name>Host::CViewerWindow</name>
    <message>
        <source>Show the camera&apos;s image</source>
        <translation>카메라 이미지 보기</translation>
    </message>
    <message>
        <source>Scene %1</source>
        <translation>장면 %1</translation>
    </message>
    <message>
        <source>There is no scene to open it in.</source>
        <translation>열 장면이 없습니다.</translation>
    </message>
    <message>
        <source>Opened %1</source>
        <translation>%1 열림</translation>
    </message>
    <message>
        <source>There is no scene to save.</source>
        <translation>저장할 장면이 없습니다.</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 저장됨</translation>
    </message>
    <message>
        <source>A chain needs a scene: connect a camera first.</source>
        <translation>체인에는 장면이 필요합니다. 먼저 카메라를 연결하세요.</translation>
    </message>
    <message>
        <source>Imported %1</source>
        <translation>%1 가져옴</translation>
    </message>
    <message>
        <source>Documents (*.json);;All files (*)</source>
        <translation>문서 (*.json);;모든 파일 (*)</translation>
    </message>
    <message>
        <source>Open scene</source>
        <translation>장면 열기</translation>
    </message>
    <message>
        <source>Import chain</source>
        <translation>체인 가져오기</translation>
    </message>
    <message>
        <source>Save scene</source>
        <translation>장면 저장</translation>
    </message>
    <message>
        <source>%1 has changes that are not saved.</source>
        <translation>%1에 저장되지 않은 변경 사항이 있습니다.</translation>
    </message>
    <message>
        <source>Halvex Viewer</source>
        <translation>Halvex 뷰어</translation>
    </message>
    <message>
        <source>Scenes</source>
        <translation>장면</translation>
    </message>
</context>
<context>
    <name>Host::ModelText</name>
    <message>
        <source>Filters</source>
        <translation>필터</translation>
    </message>
    <message>
        <source>Sinks</source>
        <translation>싱크</translation>
    </message>
    <message>
        <source>Sources</source>
        <translation>소스</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>도구</translation>
    </message>
    <message>
        <source>Blur</source>
        <translation>흐림</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>카메라</translation>
    </message>
    <message>
        <source>Camera Source</source>
        <translation>카메라 소스</translation>
    </message>
    <message>
        <source>DecouplerVGR</source>
        <translation>VGR 디커플러</translation>
    </message>
    <message>
        <source>Edges</source>
        <translation>가장자리</translation>
    </message>
    <message>
        <source>Histogram</source>
        <translation>히스토그램</translation>
    </message>
    <message>
        <source>Image View</source>
        <translation>이미지 보기</translation>
    </message>
    <message>
        <source>PNG Sink</source>
        <translation>PNG 싱크</translation>
    </message>
    <message>
        <source>PNG files</source>
        <translation>PNG 파일</translation>
    </message>
    <message>
        <source>Raw Sink</source>
        <translation>RAW 싱크</translation>
    </message>
    <message>
        <source>Raw files</source>
        <translation>RAW 파일</translation>
    </message>
    <message>
        <source>Threshold</source>
        <translation>임곗값</translation>
    </message>
    <message>
        <source>To Image</source>
        <translation>이미지로 변환</translation>
    </message>
    <message>
        <source>To image</source>
        <translation>이미지로 변환</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>동영상</translation>
    </message>
    <message>
        <source>Video Sink</source>
        <translation>동영상 싱크</translation>
    </message>
    <message>
        <source>Frames per second</source>
        <translation>초당 프레임</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>수준</translation>
    </message>
    <message>
        <source>Method</source>
        <translation>방법</translation>
    </message>
    <message>
        <source>Most waiting</source>
        <translation>최대 대기 수</translation>
    </message>
    <message>
        <source>Parallelism</source>
        <translation>병렬 수</translation>
    </message>
    <message>
        <source>Policy</source>
        <translation>정책</translation>
    </message>
    <message>
        <source>Priority</source>
        <translation>우선순위</translation>
    </message>
    <message>
        <source>Sink name</source>
        <translation>싱크 이름</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>크기</translation>
    </message>
    <message>
        <source>View name</source>
        <translation>보기 이름</translation>
    </message>
    <message>
        <source>Write every</source>
        <translation>기록 간격</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>백그라운드</translation>
    </message>
    <message>
        <source>Box</source>
        <translation>박스</translation>
    </message>
    <message>
        <source>Canny</source>
        <translation>Canny</translation>
    </message>
    <message>
        <source>Drop newest</source>
        <translation>최신 항목 버림</translation>
    </message>
    <message>
        <source>Drop oldest</source>
        <translation>오래된 항목 버림</translation>
    </message>
    <message>
        <source>Fixed</source>
        <translation>고정</translation>
    </message>
    <message>
        <source>Gaussian</source>
        <translation>가우스</translation>
    </message>
    <message>
        <source>Median</source>
        <translation>중앙값</translation>
    </message>
    <message>
        <source>Newest wins</source>
        <translation>최신 항목 우선</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>보통</translation>
    </message>
    <message>
        <source>Otsu</source>
        <translation>오츠</translation>
    </message>
    <message>
        <source>Sobel</source>
        <translation>Sobel</translation>
    </message>
    <message>
        <source>Background keeps one core free for what is recorded, as is right for previews.</source>
        <translation>&apos;백그라운드&apos;는 기록을 위해 코어 하나를 비워 둡니다. 미리 보기에 알맞습니다.</translation>
    </message>
    <message>
        <source>Canny draws thin lines, and follows an edge down to a third of &apos;level&apos;; Sobel draws all of it.</source>
        <translation>Canny는 가는 선을 그리며 &apos;수준&apos;의 3분의 1까지 가장자리를 따라갑니다. Sobel은 모두 그립니다.</translation>
    </message>
    <message>
        <source>Gaussian keeps most detail, Box is fastest, Median removes single wrong pixels.</source>
        <translation>가우스는 세부를 가장 잘 남기고, 박스는 가장 빠르며, 중앙값은 홀로 잘못된 픽셀을 없앱니다.</translation>
    </message>
    <message>
        <source>Grey values above it become white. Otsu does not ask for it.</source>
        <translation>이보다 큰 밝기 값은 흰색이 됩니다. &apos;오츠&apos;에서는 쓰지 않습니다.</translation>
    </message>
    <message>
        <source>How fast the video plays.</source>
        <translation>동영상이 재생되는 속도입니다.</translation>
    </message>
    <message>
        <source>How much the grey value must change.</source>
        <translation>밝기 값이 변해야 하는 크기입니다.</translation>
    </message>
    <message>
        <source>It writes one of so many frames; 0: as the run says, with --write-every.</source>
        <translation>이 수의 프레임마다 하나를 기록합니다. 0이면 실행할 때의 --write-every를 따릅니다.</translation>
    </message>
    <message>
        <source>Otsu finds the threshold that separates each image best, Fixed takes &apos;level&apos;.</source>
        <translation>&apos;오츠&apos;는 각 이미지를 가장 잘 나누는 임곗값을 찾고, &apos;고정&apos;은 &apos;수준&apos;을 씁니다.</translation>
    </message>
    <message>
        <source>Pixels along each side of the square in which the change is looked for.</source>
        <translation>변화를 찾는 정사각형의 한 변 픽셀 수입니다.</translation>
    </message>
    <message>
        <source>Pixels along each side of the square that a pixel is smoothed over.</source>
        <translation>픽셀을 고르게 하는 정사각형의 한 변 픽셀 수입니다.</translation>
    </message>
    <message>
        <source>The name of its folder. A chain gives it.</source>
        <translation>폴더의 이름입니다. 체인이 정합니다.</translation>
    </message>
    <message>
        <source>What stands above the image.</source>
        <translation>이미지 위에 보이는 이름입니다.</translation>
    </message>
</context>
</TS>
