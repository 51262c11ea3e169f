<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko" sourcelanguage="en">
<context>
    <name>Host::CAravisCamera</name>
    <message>
        <source>camera &apos;%1&apos;: another program is using it (%2)</source>
        <translation>카메라 &apos;%1&apos;: 다른 프로그램이 사용하고 있습니다(%2)</translation>
    </message>
    <message>
        <source>camera &apos;%1&apos;: %2</source>
        <translation>카메라 &apos;%1&apos;: %2</translation>
    </message>
    <message>
        <source>cannot read camera &apos;%1&apos;: %2</source>
        <translation>카메라 &apos;%1&apos;을(를) 읽을 수 없습니다: %2</translation>
    </message>
    <message>
        <source>camera &apos;%1&apos; does not start: %2</source>
        <translation>카메라 &apos;%1&apos;이(가) 시작되지 않습니다: %2</translation>
    </message>
    <message>
        <source>camera &apos;%1&apos; gives no stream: %2</source>
        <translation>카메라 &apos;%1&apos;에서 스트림을 얻을 수 없습니다: %2</translation>
    </message>
    <message>
        <source>camera &apos;%1&apos; has gone: it no longer answers</source>
        <translation>카메라 &apos;%1&apos;이(가) 사라졌습니다: 더 이상 응답하지 않습니다</translation>
    </message>
</context>
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
    <message>
        <source>Images of the format %1 cannot be shown.</source>
        <translation>%1 형식의 이미지는 표시할 수 없습니다.</translation>
    </message>
</context>
<context>
    <name>Host::CChainReader</name>
    <message>
        <source>no element has a camera as its source</source>
        <translation>카메라를 소스로 하는 요소가 없습니다</translation>
    </message>
    <message>
        <source>the camera %1</source>
        <translation>카메라 %1</translation>
    </message>
    <message>
        <source>a %1 of its own; frames come from the cameras of the run, named in %2</source>
        <translation>체인이 따로 가진 %1은(는) 쓸 수 없습니다. 프레임은 %2에서 지정한 실행의 카메라에서 옵니다</translation>
    </message>
    <message>
        <source>%1 stands for any camera</source>
        <translation>%1은(는) 모든 카메라를 나타냅니다</translation>
    </message>
    <message>
        <source>%1 is the name of a camera</source>
        <translation>%1은(는) 카메라의 이름입니다</translation>
    </message>
    <message>
        <source>a second element %1, after that at %2</source>
        <translation>요소 %1이(가) %2에 이어 두 번째로 나옵니다</translation>
    </message>
    <message>
        <source>no element is named %1, so that it is taken for a camera</source>
        <translation>이름이 %1인 요소가 없어 카메라로 간주합니다</translation>
    </message>
    <message>
        <source>too many names are unknown to say whether a label was meant</source>
        <translation>알 수 없는 이름이 너무 많아 레이블을 뜻한 것인지 판단할 수 없습니다</translation>
    </message>
    <message>
        <source>no element is named %1</source>
        <translation>이름이 %1인 요소가 없습니다</translation>
    </message>
    <message>
        <source>no camera of the run and no element is named %1</source>
        <translation>이 실행의 카메라나 요소 중에 이름이 %1인 것이 없습니다</translation>
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
    <name>Host::CDocumentCheck</name>
    <message>
        <source>%1, where an array (a chain) or an object (a scene) belongs</source>
        <translation>배열(체인)이나 객체(장면)가 와야 할 자리에 %1이(가) 있습니다</translation>
    </message>
</context>
<context>
    <name>Host::CFaultList</name>
    <message>
        <source>there are more faults than these %1</source>
        <translation>이 %1개 외에도 문제가 더 있습니다</translation>
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
        <source>The text that was checked</source>
        <translation>검사한 텍스트</translation>
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
    <name>Host::CFeatures</name>
    <message>
        <source>%1 to %2 in steps of %3</source>
        <translation>%1~%2, %3 단위</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1~%2</translation>
    </message>
    <message>
        <source>boolean, true, false</source>
        <translation>부울, true, false</translation>
    </message>
    <message>
        <source>integer</source>
        <translation>정수</translation>
    </message>
    <message>
        <source>integer, %1</source>
        <translation>정수, %1</translation>
    </message>
    <message>
        <source>float</source>
        <translation>부동소수점 수</translation>
    </message>
    <message>
        <source>float, %1</source>
        <translation>부동소수점 수, %1</translation>
    </message>
    <message>
        <source>the feature &apos;%1&apos; takes one of %2, not %3</source>
        <translation>기능 &apos;%1&apos;의 값은 %2 중 하나여야 하며 %3은(는) 쓸 수 없습니다</translation>
    </message>
    <message>
        <source>the feature &apos;%1&apos; takes %2, not %3</source>
        <translation>기능 &apos;%1&apos;의 값은 %2이어야 하며 %3은(는) 쓸 수 없습니다</translation>
    </message>
    <message>
        <source>In no category</source>
        <translation>분류 없음</translation>
    </message>
    <message>
        <source>it has no feature %1</source>
        <translation>기능 %1이(가) 없습니다</translation>
    </message>
    <message>
        <source>the feature &apos;%1&apos; cannot be written now</source>
        <translation>기능 &apos;%1&apos;은(는) 지금 변경할 수 없습니다</translation>
    </message>
    <message>
        <source>the feature &apos;%1&apos; is read only</source>
        <translation>기능 &apos;%1&apos;은(는) 읽기 전용입니다</translation>
    </message>
    <message>
        <source>the feature &apos;%1&apos; refuses %2: %3</source>
        <translation>기능 &apos;%1&apos;에 %2을(를) 설정할 수 없습니다: %3</translation>
    </message>
</context>
<context>
    <name>Host::CFileSource</name>
    <message>
        <source>cannot read %1: its pixels are %2; it takes 8 or 16 bits, grey or colour</source>
        <translation>%1을(를) 읽을 수 없습니다: 픽셀이 %2입니다. 8비트나 16비트의 회색 또는 컬러여야 합니다</translation>
    </message>
</context>
<context>
    <name>Host::CFileWriter</name>
    <message>
        <source>cannot write &apos;%1&apos;: %2</source>
        <translation>&apos;%1&apos;에 쓸 수 없습니다: %2</translation>
    </message>
</context>
<context>
    <name>Host::CFrameTable</name>
    <message>
        <source>cannot write &apos;%1&apos;: %2</source>
        <translation>&apos;%1&apos;에 쓸 수 없습니다: %2</translation>
    </message>
</context>
<context>
    <name>Host::CGLibError</name>
    <message>
        <source>no answer</source>
        <translation>응답 없음</translation>
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
        <source>Choose the next connection</source>
        <translation>다음 연결 선택</translation>
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
    <name>Host::CGraphCheck</name>
    <message>
        <source>%1 has no output port %2; it has none</source>
        <translation>%1에 출력 포트 %2이(가) 없습니다. 출력 포트가 하나도 없습니다</translation>
    </message>
    <message>
        <source>%1 has no output port %2; its only output port is 0</source>
        <translation>%1에 출력 포트 %2이(가) 없습니다. 출력 포트는 0 하나뿐입니다</translation>
    </message>
    <message>
        <source>%1 has no output port %2; its output ports are 0 to %3</source>
        <translation>%1에 출력 포트 %2이(가) 없습니다. 출력 포트는 0~%3입니다</translation>
    </message>
    <message>
        <source>%1 has no input port %2; it has none</source>
        <translation>%1에 입력 포트 %2이(가) 없습니다. 입력 포트가 하나도 없습니다</translation>
    </message>
    <message>
        <source>%1 has no input port %2; its only input port is 0</source>
        <translation>%1에 입력 포트 %2이(가) 없습니다. 입력 포트는 0 하나뿐입니다</translation>
    </message>
    <message>
        <source>%1 has no input port %2; its input ports are 0 to %3</source>
        <translation>%1에 입력 포트 %2이(가) 없습니다. 입력 포트는 0~%3입니다</translation>
    </message>
    <message>
        <source>no source reaches %1</source>
        <translation>어떤 소스의 데이터도 %1에 닿지 않습니다</translation>
    </message>
    <message>
        <source>no source reaches %1, and so not what lies behind it (1 node)</source>
        <translation>어떤 소스의 데이터도 %1에 닿지 않으며 그 뒤(노드 1개)에도 닿지 않습니다</translation>
    </message>
    <message>
        <source>no source reaches %1, and so not what lies behind it (%2 nodes)</source>
        <translation>어떤 소스의 데이터도 %1에 닿지 않으며 그 뒤(노드 %2개)에도 닿지 않습니다</translation>
    </message>
    <message>
        <source>%1 feeds %2 already, at %3: all data would come twice</source>
        <translation>%1은(는) %3에서 이미 %2에 연결되어 있습니다. 모든 데이터가 두 번 오게 됩니다</translation>
    </message>
    <message>
        <source>%1 gives %2, and %3 takes %4</source>
        <translation>%1은(는) %2을(를) 내보내지만 %3은(는) %4을(를) 받습니다</translation>
    </message>
    <message>
        <source>a converter from %1 to %2, where %3 gives %4, and %5 takes %6</source>
        <translation>변환기는 %1에서 %2(으)로 변환하지만 %3은(는) %4을(를) 내보내고 %5은(는) %6을(를) 받습니다</translation>
    </message>
    <message>
        <source>a converter from %1 to %2 is not registered</source>
        <translation>%1에서 %2(으)로의 변환기가 등록되어 있지 않습니다</translation>
    </message>
    <message>
        <source>the connection lacks its &apos;converter&apos;, which is registered</source>
        <translation>연결에 &apos;converter&apos;가 빠졌습니다. 변환기는 등록되어 있습니다</translation>
    </message>
    <message>
        <source>put a %1 between</source>
        <translation>사이에 %1을(를) 넣으세요</translation>
    </message>
    <message>
        <source>no model makes the one of the other</source>
        <translation>둘 사이를 변환하는 모델이 없습니다</translation>
    </message>
    <message>
        <source>%1 more</source>
        <comment>nodes</comment>
        <translation>그 밖에 %1개</translation>
    </message>
    <message>
        <source>a loop, with no decoupler in it: %1</source>
        <translation>디커플러가 없는 순환입니다: %1</translation>
    </message>
    <message>
        <source>nothing is wired to %1</source>
        <translation>%1에 아무것도 연결되어 있지 않습니다</translation>
    </message>
    <message>
        <source>nothing feeds input port %1 of %2</source>
        <translation>%2의 입력 포트 %1에 아무것도 연결되어 있지 않습니다</translation>
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
    <name>Host::CImageFiles</name>
    <message>
        <source>it is a folder</source>
        <translation>폴더입니다</translation>
    </message>
    <message>
        <source>no image, or a broken one</source>
        <translation>이미지가 아니거나 손상되었습니다</translation>
    </message>
    <message>
        <source>no image in the folder %1; it takes %2</source>
        <translation>폴더 %1에 이미지가 없습니다. 쓸 수 있는 것은 %2입니다</translation>
    </message>
    <message>
        <source>no file matches %1</source>
        <translation>%1과(와) 일치하는 파일이 없습니다</translation>
    </message>
    <message>
        <source>no such folder or file: %1</source>
        <translation>그런 폴더나 파일이 없습니다: %1</translation>
    </message>
    <message>
        <source>image %1</source>
        <comment>one that stands in for a camera</comment>
        <translation>이미지 %1</translation>
    </message>
    <message>
        <source>%1 images of %2</source>
        <translation>%2의 이미지 %1개</translation>
    </message>
    <message>
        <source>cannot read %1: %2</source>
        <translation>%1을(를) 읽을 수 없습니다: %2</translation>
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
    <message>
        <source>the image has no PNG form</source>
        <translation>이미지를 PNG로 만들 수 없습니다</translation>
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
        <source>%1 of %2 frames/s shown</source>
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
    <name>Host::CJsonTree</name>
    <message>
        <source>an array</source>
        <translation>배열</translation>
    </message>
    <message>
        <source>an object</source>
        <translation>객체</translation>
    </message>
    <message>
        <source>the string %1</source>
        <translation>문자열 %1</translation>
    </message>
    <message>
        <source>the number %1</source>
        <translation>숫자 %1</translation>
    </message>
</context>
<context>
    <name>Host::CModelCatalogue</name>
    <message>
        <source>making %1</source>
        <translation>%1 만들기</translation>
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
    <name>Host::CNodeReader</name>
    <message>
        <source>a %1 cannot be made</source>
        <translation>%1을(를) 만들 수 없습니다</translation>
    </message>
    <message>
        <source>no model %1 is registered</source>
        <translation>모델 %1이(가) 등록되어 있지 않습니다</translation>
    </message>
    <message>
        <source>asking for ports</source>
        <translation>포트 조회</translation>
    </message>
    <message>
        <source>a sink needs a name for its folder: &quot;property&quot;: {&quot;sink_name&quot;: …}</source>
        <translation>싱크에는 폴더 이름이 필요합니다: &quot;property&quot;: {&quot;sink_name&quot;: …}</translation>
    </message>
    <message>
        <source>the sink&apos;s name %1 makes no folder</source>
        <translation>싱크 이름 %1은(는) 폴더 이름이 될 수 없습니다</translation>
    </message>
    <message>
        <source>a second sink %1, after that at %2</source>
        <translation>싱크 %1이(가) %2에 이어 두 번째로 나옵니다</translation>
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
    <name>Host::CReconnectingCamera</name>
    <message>
        <source>%1; it did not come back for %2 s</source>
        <translation>%1. %2초 동안 다시 나타나지 않았습니다</translation>
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
        <source>the scene is gone</source>
        <translation>장면이 더 이상 없습니다</translation>
    </message>
    <message>
        <source>nothing of &apos;%1&apos; could be made</source>
        <translation>‘%1’의 요소를 하나도 만들 수 없었습니다</translation>
    </message>
    <message>
        <source>the scene cannot be cleared</source>
        <translation>장면을 비울 수 없습니다</translation>
    </message>
    <message>
        <source>cannot open &apos;%1&apos;</source>
        <translation>&apos;%1&apos;을(를) 열 수 없습니다</translation>
    </message>
    <message>
        <source>cannot import &apos;%1&apos;</source>
        <translation>&apos;%1&apos;을(를) 가져올 수 없습니다</translation>
    </message>
</context>
<context>
    <name>Host::CSceneLoader</name>
    <message>
        <source>the scene is gone</source>
        <translation>장면이 더 이상 없습니다</translation>
    </message>
    <message>
        <source>connections[%1]: the scene refuses it</source>
        <translation>connections[%1]: 장면이 받아들이지 않습니다</translation>
    </message>
    <message>
        <source>making %1</source>
        <translation>%1 만들기</translation>
    </message>
</context>
<context>
    <name>Host::CSceneReader</name>
    <message>
        <source>none of the nodes is a %1, the camera of the run</source>
        <translation>노드 중에 실행의 카메라인 %1이(가) 없습니다</translation>
    </message>
    <message>
        <source>a unique %1 is not made of a document, and there is none to refer to</source>
        <translation>고유한 %1은(는) 문서에서 만들어지지 않으며 참조할 것도 없습니다</translation>
    </message>
    <message>
        <source>a %1 is a source without a camera; only a %2 stands for one</source>
        <translation>%1은(는) 카메라가 없는 소스입니다. 카메라를 나타내는 것은 %2뿐입니다</translation>
    </message>
    <message>
        <source>a second %1, after that at %2; a scene has one camera</source>
        <translation>%1이(가) %2에 이어 두 번째로 나옵니다. 장면의 카메라는 하나입니다</translation>
    </message>
    <message>
        <source>%1 is no id; one is like %2</source>
        <translation>%1은(는) ID가 아닙니다. ID는 %2와(과) 같은 형식입니다</translation>
    </message>
    <message>
        <source>a second node of this id, after that at %1</source>
        <translation>이 ID의 노드가 %1에 이어 두 번째로 나옵니다</translation>
    </message>
    <message>
        <source>no node has the id %1</source>
        <translation>ID가 %1인 노드가 없습니다</translation>
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
</context>
<context>
    <name>Host::CSettingTexts</name>
    <message>
        <source>&apos;%1&apos; takes one of %2, not %3</source>
        <translation>&apos;%1&apos;의 값은 %2 중 하나여야 하며 %3은(는) 쓸 수 없습니다</translation>
    </message>
    <message>
        <source>&apos;%1&apos; takes text, not %2</source>
        <translation>&apos;%1&apos;의 값은 텍스트여야 하며 %2은(는) 쓸 수 없습니다</translation>
    </message>
    <message>
        <source>&apos;%1&apos; takes %2, not %3</source>
        <translation>&apos;%1&apos;의 값은 %2이어야 하며 %3은(는) 쓸 수 없습니다</translation>
    </message>
    <message>
        <source>&apos;%1&apos; takes %2, %3, not %4</source>
        <comment>name, type, range</comment>
        <translation>&apos;%1&apos;의 값은 %2, %3이어야 하며 %4은(는) 쓸 수 없습니다</translation>
    </message>
    <message>
        <source>the sink&apos;s name %1 makes no folder</source>
        <translation>싱크 이름 %1은(는) 폴더 이름이 될 수 없습니다</translation>
    </message>
    <message>
        <source>&apos;%1&apos; cannot be set; a chain gives it</source>
        <translation>&apos;%1&apos;은(는) 설정할 수 없습니다. 체인이 정합니다</translation>
    </message>
    <message>
        <source>it is gone</source>
        <translation>더 이상 없습니다</translation>
    </message>
    <message>
        <source>it has no settings</source>
        <translation>설정이 없습니다</translation>
    </message>
    <message>
        <source>it has no setting %1; it has %2</source>
        <translation>설정 %1이(가) 없습니다. 있는 설정은 %2입니다</translation>
    </message>
    <message>
        <source>it has no setting %1; %2 It has %3</source>
        <comment>%2 is a question</comment>
        <translation>설정 %1이(가) 없습니다. %2 있는 설정은 %3입니다</translation>
    </message>
</context>
<context>
    <name>Host::CSettingsCheck</name>
    <message>
        <source>making %1</source>
        <translation>%1 만들기</translation>
    </message>
    <message>
        <source>unknown key %1, which %2 does not keep</source>
        <translation>알 수 없는 키 %1입니다. %2은(는) 이를 보관하지 않습니다</translation>
    </message>
    <message>
        <source>%1 for %2 is not taken; it stays %3</source>
        <translation>%2에 대한 %1은(는) 받아들여지지 않아 %3 그대로입니다</translation>
    </message>
    <message>
        <source>%1 has no setting %2, nor any other</source>
        <translation>%1에 설정 %2이(가) 없으며 다른 설정도 없습니다</translation>
    </message>
    <message>
        <source>%1 has no setting %2</source>
        <translation>%1에 설정 %2이(가) 없습니다</translation>
    </message>
    <message>
        <source>a value like %1</source>
        <translation>%1 같은 값</translation>
    </message>
    <message>
        <source>%1, where %2 belongs</source>
        <translation>%2이(가) 와야 할 자리에 %1이(가) 있습니다</translation>
    </message>
    <message>
        <source>%1, where a rate above 0 belongs</source>
        <translation>0보다 큰 속도가 와야 할 자리에 %1이(가) 있습니다</translation>
    </message>
    <message>
        <source>%1 refuses %2</source>
        <translation>%1은(는) %2을(를) 받아들이지 않습니다</translation>
    </message>
    <message>
        <source>%1 takes %2, not %3</source>
        <translation>%1의 값은 %2이어야 하며 %3은(는) 쓸 수 없습니다</translation>
    </message>
    <message>
        <source>it stays %1</source>
        <translation>%1 그대로입니다</translation>
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
    <name>Host::CShapeCheck</name>
    <message>
        <source>a smaller number</source>
        <translation>더 작은 숫자</translation>
    </message>
    <message>
        <source>a whole number</source>
        <translation>정수</translation>
    </message>
    <message>
        <source>true or false</source>
        <translation>true 또는 false</translation>
    </message>
    <message>
        <source>an array</source>
        <translation>배열</translation>
    </message>
    <message>
        <source>an object</source>
        <translation>객체</translation>
    </message>
    <message>
        <source>a number</source>
        <translation>숫자</translation>
    </message>
    <message>
        <source>a string</source>
        <translation>문자열</translation>
    </message>
    <message>
        <source>%1 or %2</source>
        <comment>types of JSON</comment>
        <translation>%1 또는 %2</translation>
    </message>
    <message>
        <source>%1, where %2 belongs: %3</source>
        <translation>%2이(가) 와야 할 자리에 %1이(가) 있습니다: %3</translation>
    </message>
    <message>
        <source>allowed are %1</source>
        <translation>쓸 수 있는 것은 %1입니다</translation>
    </message>
    <message>
        <source>unknown key %1</source>
        <translation>알 수 없는 키 %1입니다</translation>
    </message>
    <message>
        <source>%1 lacks %2</source>
        <translation>%1에 %2이(가) 없습니다</translation>
    </message>
    <message>
        <source>%1 is empty</source>
        <translation>%1이(가) 비어 있습니다</translation>
    </message>
    <message>
        <source>%1, where %2 belongs, from %3</source>
        <translation>%2(%3 이상)이(가) 와야 할 자리에 %1이(가) 있습니다</translation>
    </message>
</context>
<context>
    <name>Host::CSharedCamera</name>
    <message>
        <source>camera &apos;%1&apos; has gone</source>
        <translation>카메라 &apos;%1&apos;이(가) 사라졌습니다</translation>
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
    <name>Host::CSyntaxTexts</name>
    <message>
        <source>%1 is no quote of JSON, which has straight ones: &quot;</source>
        <translation>%1은(는) JSON의 따옴표가 아닙니다. 곧은따옴표를 써야 합니다: &quot;</translation>
    </message>
    <message>
        <source>U+%1 looks like a blank, and is none of JSON</source>
        <translation>U+%1은(는) 공백처럼 보이지만 JSON의 공백이 아닙니다</translation>
    </message>
    <message>
        <source>the document ends within the array that begins at %1</source>
        <translation>%1에서 시작하는 배열 안에서 문서가 끝납니다</translation>
    </message>
    <message>
        <source>the document ends within the object that begins at %1</source>
        <translation>%1에서 시작하는 객체 안에서 문서가 끝납니다</translation>
    </message>
    <message>
        <source>&apos;]&apos; belongs here, to close the array that begins at %1</source>
        <translation>%1에서 시작하는 배열을 닫는 &apos;]&apos;이(가) 여기에 와야 합니다</translation>
    </message>
    <message>
        <source>&apos;}&apos; belongs here, to close the object that begins at %1</source>
        <translation>%1에서 시작하는 객체를 닫는 &apos;}&apos;이(가) 여기에 와야 합니다</translation>
    </message>
    <message>
        <source>JSON has strings in double quotes only</source>
        <translation>JSON의 문자열은 큰따옴표로만 묶습니다</translation>
    </message>
    <message>
        <source>JSON has no comments</source>
        <translation>JSON에는 주석이 없습니다</translation>
    </message>
    <message>
        <source>a value is missing before %1</source>
        <translation>%1 앞에 값이 없습니다</translation>
    </message>
    <message>
        <source>%1 is no number</source>
        <translation>%1은(는) 숫자가 아닙니다</translation>
    </message>
    <message>
        <source>%1 is no value</source>
        <translation>%1은(는) 값이 아닙니다</translation>
    </message>
    <message>
        <source>strings stand in double quotes</source>
        <translation>문자열은 큰따옴표로 묶습니다</translation>
    </message>
    <message>
        <source>a key stands in double quotes</source>
        <translation>키는 큰따옴표로 묶습니다</translation>
    </message>
    <message>
        <source>a key is missing before %1</source>
        <translation>%1 앞에 키가 없습니다</translation>
    </message>
    <message>
        <source>a number does not begin with 0</source>
        <translation>숫자는 0으로 시작하지 않습니다</translation>
    </message>
    <message>
        <source>&apos;,&apos; or &apos;]&apos; is missing before this</source>
        <translation>이 앞에 &apos;,&apos; 또는 &apos;]&apos;이(가) 없습니다</translation>
    </message>
    <message>
        <source>&apos;,&apos; or &apos;}&apos; is missing before this</source>
        <translation>이 앞에 &apos;,&apos; 또는 &apos;}&apos;이(가) 없습니다</translation>
    </message>
    <message>
        <source>a string ends on the line where it begins; a line break in it is written \n</source>
        <translation>문자열은 시작한 줄에서 끝나야 합니다. 문자열 안의 줄 바꿈은 \n으로 씁니다</translation>
    </message>
    <message>
        <source>a control character in a string is written \u%1</source>
        <translation>문자열 안의 제어 문자는 \u%1(으)로 씁니다</translation>
    </message>
    <message>
        <source>four digits belong behind \u, each from 0 to 9 or a to f</source>
        <translation>\u 뒤에는 0~9 또는 a~f의 네 자리가 와야 합니다</translation>
    </message>
    <message>
        <source>half a letter; \ud800 to \udfff stand in pairs</source>
        <translation>글자의 절반뿐입니다. \ud800~\udfff는 쌍으로 씁니다</translation>
    </message>
    <message>
        <source>no such escape; a backslash itself is written \\</source>
        <translation>그런 이스케이프는 없습니다. 백슬래시 자체는 \\로 씁니다</translation>
    </message>
    <message>
        <source>the document is empty</source>
        <translation>문서가 비어 있습니다</translation>
    </message>
    <message>
        <source>&apos;/&apos; is nothing that JSON has</source>
        <translation>JSON에는 &apos;/&apos;이(가) 없습니다</translation>
    </message>
    <message>
        <source>JSON has no comments, and this one has no end</source>
        <translation>JSON에는 주석이 없으며 이 주석은 끝나지도 않습니다</translation>
    </message>
    <message>
        <source>the document ends within a string</source>
        <translation>문자열 안에서 문서가 끝납니다</translation>
    </message>
    <message>
        <source>something stands behind the end of the document</source>
        <translation>문서의 끝 뒤에 무언가가 있습니다</translation>
    </message>
    <message>
        <source>&apos;:&apos; is missing behind the key</source>
        <translation>키 뒤에 &apos;:&apos;이(가) 없습니다</translation>
    </message>
    <message>
        <source>the number is too large</source>
        <translation>숫자가 너무 큽니다</translation>
    </message>
    <message>
        <source>a digit belongs behind the point of a number</source>
        <translation>숫자의 소수점 뒤에는 숫자가 와야 합니다</translation>
    </message>
    <message>
        <source>a digit belongs behind the &apos;e&apos; of a number</source>
        <translation>숫자의 &apos;e&apos; 뒤에는 숫자가 와야 합니다</translation>
    </message>
    <message>
        <source>this is no JSON</source>
        <translation>이것은 JSON이 아닙니다</translation>
    </message>
</context>
<context>
    <name>Host::CTreeBuilder</name>
    <message>
        <source>%1 is no JSON: numbers are finite there</source>
        <translation>%1은(는) JSON이 아닙니다. JSON의 숫자는 유한합니다</translation>
    </message>
    <message>
        <source>arrays and objects nest too deep</source>
        <translation>배열과 객체의 중첩이 너무 깊습니다</translation>
    </message>
    <message>
        <source>a comma behind the last item is no JSON</source>
        <translation>마지막 항목 뒤의 쉼표는 JSON에서 쓸 수 없습니다</translation>
    </message>
    <message>
        <source>a comma behind the last member is no JSON</source>
        <translation>마지막 멤버 뒤의 쉼표는 JSON에서 쓸 수 없습니다</translation>
    </message>
    <message>
        <source>more than %1 values</source>
        <translation>값이 %1개를 넘습니다</translation>
    </message>
    <message>
        <source>JSON has no comments</source>
        <translation>JSON에는 주석이 없습니다</translation>
    </message>
    <message>
        <source>a second key %1, after that at %2; only one would count</source>
        <translation>키 %1이(가) %2에 이어 두 번째로 나옵니다. 하나만 유효합니다</translation>
    </message>
</context>
<context>
    <name>Host::CVideoFile</name>
    <message>
        <source>the image is empty</source>
        <translation>이미지가 비어 있습니다</translation>
    </message>
    <message>
        <source>an image is %1, the video %2</source>
        <comment>width x height</comment>
        <translation>이미지는 %1, 동영상은 %2입니다</translation>
    </message>
    <message>
        <source>No space left on device</source>
        <translation>장치에 남은 공간이 없습니다</translation>
    </message>
    <message>
        <source>the encoder refuses it</source>
        <translation>인코더가 받아들이지 않습니다</translation>
    </message>
    <message>
        <source>it did not become complete; is the disk full?</source>
        <translation>끝까지 쓰지 못했습니다. 디스크가 가득 차지 않았습니까?</translation>
    </message>
</context>
<context>
    <name>Host::CVideoReader</name>
    <message>
        <source>video %1</source>
        <comment>one that stands in for a camera</comment>
        <translation>동영상 %1</translation>
    </message>
    <message>
        <source>cannot read the video %1: %2</source>
        <translation>동영상 %1을(를) 읽을 수 없습니다: %2</translation>
    </message>
    <message>
        <source>cannot read the video %1: no video, or one in a format that is not known here</source>
        <translation>동영상 %1을(를) 읽을 수 없습니다: 동영상이 아니거나 알 수 없는 형식입니다</translation>
    </message>
    <message>
        <source>no frame of the video %1 can be read</source>
        <translation>동영상 %1의 프레임을 하나도 읽을 수 없습니다</translation>
    </message>
    <message>
        <source>the video %1 ends after %2 of %3 frames: a part of it is missing or broken</source>
        <translation>동영상 %1이(가) 프레임 %3개 중 %2개에서 끝납니다. 일부가 없거나 손상되었습니다</translation>
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
        <source>Previous scene</source>
        <translation>이전 장면</translation>
    </message>
    <message>
        <source>Next scene</source>
        <translation>다음 장면</translation>
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
    <name>Host::CWordFinder</name>
    <message>
        <source>%1, %2</source>
        <comment>names that are listed</comment>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>there is only %1</source>
        <translation>있는 것은 %1뿐입니다</translation>
    </message>
    <message>
        <source>there are %1</source>
        <translation>있는 것은 %1입니다</translation>
    </message>
    <message>
        <source>%1 and %2</source>
        <comment>names that are listed</comment>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>%1 or %2</source>
        <comment>names that are listed</comment>
        <translation>%1, %2</translation>
    </message>
</context>
<context>
    <name>Host::ClosestWords</name>
    <message>
        <source>did you mean %1?</source>
        <translation>%1을(를) 뜻하셨습니까?</translation>
    </message>
    <message>
        <source>did you mean %1 or %2?</source>
        <translation>%1 또는 %2을(를) 뜻하셨습니까?</translation>
    </message>
    <message>
        <source>did you mean %1 or %2 or %3?</source>
        <translation>%1, %2 또는 %3을(를) 뜻하셨습니까?</translation>
    </message>
    <message>
        <source>%1; %2</source>
        <comment>what is wrong; a question or a hint</comment>
        <translation>%1. %2</translation>
    </message>
</context>
<context>
    <name>Host::ConnectionText</name>
    <message>
        <source>%1 to %2</source>
        <comment>types of data</comment>
        <translation>%1에서 %2(으)로</translation>
    </message>
</context>
<context>
    <name>Host::Device</name>
    <message>
        <source>cannot open camera &apos;%1&apos;: %2</source>
        <translation>카메라 &apos;%1&apos;을(를) 열 수 없습니다: %2</translation>
    </message>
</context>
<context>
    <name>Host::DocumentFile</name>
    <message>
        <source>%1: it has 1 error:
%2</source>
        <comment>what cannot be done</comment>
        <translation>%1: 오류가 1개 있습니다:
%2</translation>
    </message>
    <message>
        <source>%1: it has %2 errors:
%3</source>
        <comment>what cannot be done</comment>
        <translation>%1: 오류가 %2개 있습니다:
%3</translation>
    </message>
</context>
<context>
    <name>Host::FaultReport</name>
    <message>
        <source>error</source>
        <translation>오류</translation>
    </message>
    <message>
        <source>warning</source>
        <translation>경고</translation>
    </message>
</context>
<context>
    <name>Host::InputFile</name>
    <message>
        <source>it is larger than 64 MiB</source>
        <translation>64 MiB보다 큽니다</translation>
    </message>
    <message>
        <source>cannot read &apos;%1&apos;: %2</source>
        <translation>&apos;%1&apos;을(를) 읽을 수 없습니다: %2</translation>
    </message>
</context>
<context>
    <name>Host::JsonText</name>
    <message>
        <source>the file is %1; save it as UTF-8, which is what JSON is</source>
        <translation>파일이 %1입니다. JSON은 UTF-8이므로 UTF-8로 저장하세요</translation>
    </message>
    <message>
        <source>these bytes are no UTF-8</source>
        <translation>이 바이트들은 UTF-8이 아닙니다</translation>
    </message>
    <message>
        <source>a zero byte, which no text has</source>
        <translation>텍스트에 있을 수 없는 0바이트 값입니다</translation>
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
        <translation>VGR용 디커플러</translation>
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
        <translation>이 수의 프레임마다 하나를 기록합니다. 0이면 실행할 때 정한 것을 따릅니다.</translation>
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
<context>
    <name>Host::Output</name>
    <message>
        <source>cannot write &apos;%1&apos;: %2</source>
        <translation>&apos;%1&apos;에 쓸 수 없습니다: %2</translation>
    </message>
    <message>
        <source>cannot make the folder &apos;%1&apos;: %2</source>
        <translation>폴더 &apos;%1&apos;을(를) 만들 수 없습니다: %2</translation>
    </message>
    <message>
        <source>Not a regular file</source>
        <translation>일반 파일이 아닙니다</translation>
    </message>
</context>
<context>
    <name>Host::SFault</name>
    <message>
        <source>A document can be read.</source>
        <translation>문서를 읽을 수 있어야 합니다.</translation>
    </message>
    <message>
        <source>A document is UTF-8.</source>
        <translation>문서는 UTF-8이어야 합니다.</translation>
    </message>
    <message>
        <source>A document is JSON.</source>
        <translation>문서는 JSON이어야 합니다.</translation>
    </message>
    <message>
        <source>A value has the JSON type that belongs there.</source>
        <translation>값은 그 자리에 맞는 JSON 형식이어야 합니다.</translation>
    </message>
    <message>
        <source>A value is one of those that are allowed.</source>
        <translation>값은 허용된 값 중 하나여야 합니다.</translation>
    </message>
    <message>
        <source>Keys are known: one that nobody reads does nothing.</source>
        <translation>키는 알려진 것이어야 합니다. 아무도 읽지 않는 키는 효과가 없습니다.</translation>
    </message>
    <message>
        <source>A key stands only once in an object.</source>
        <translation>키는 한 객체에 한 번만 있어야 합니다.</translation>
    </message>
    <message>
        <source>What is needed is there.</source>
        <translation>필요한 것이 모두 있어야 합니다.</translation>
    </message>
    <message>
        <source>A model is registered.</source>
        <translation>모델은 등록되어 있어야 합니다.</translation>
    </message>
    <message>
        <source>A model can be made from the document.</source>
        <translation>모델은 문서에서 만들 수 있어야 합니다.</translation>
    </message>
    <message>
        <source>A model has the setting and takes its value.</source>
        <translation>모델에 그 설정이 있고 그 값을 받아들여야 합니다.</translation>
    </message>
    <message>
        <source>A label or an id is that of an element or a node.</source>
        <translation>레이블이나 ID는 요소나 노드의 것이어야 합니다.</translation>
    </message>
    <message>
        <source>Labels and ids are different.</source>
        <translation>레이블과 ID는 서로 달라야 합니다.</translation>
    </message>
    <message>
        <source>A connection joins ports that exist.</source>
        <translation>연결은 존재하는 포트를 이어야 합니다.</translation>
    </message>
    <message>
        <source>The types of connected ports agree, or are converted.</source>
        <translation>연결된 포트의 형식은 일치하거나 변환되어야 합니다.</translation>
    </message>
    <message>
        <source>A source is a camera or an element.</source>
        <translation>소스는 카메라나 요소여야 합니다.</translation>
    </message>
    <message>
        <source>Something is wired to each camera.</source>
        <translation>모든 카메라에 무언가가 연결되어 있어야 합니다.</translation>
    </message>
    <message>
        <source>The data of a source reaches each node.</source>
        <translation>모든 노드에 소스의 데이터가 닿아야 합니다.</translation>
    </message>
    <message>
        <source>Connections lead in a circle only through a decoupler.</source>
        <translation>연결은 디커플러를 거칠 때만 순환할 수 있습니다.</translation>
    </message>
    <message>
        <source>Two ports are connected only once.</source>
        <translation>두 포트는 한 번만 연결되어야 합니다.</translation>
    </message>
    <message>
        <source>The name of a sink makes a folder of its own.</source>
        <translation>싱크의 이름은 그 싱크만의 폴더가 되어야 합니다.</translation>
    </message>
</context>
<context>
    <name>Host::SchemaTitle</name>
    <message>
        <source>a camera or a label</source>
        <translation>카메라 또는 레이블</translation>
    </message>
    <message>
        <source>a connection</source>
        <translation>연결</translation>
    </message>
    <message>
        <source>a converter</source>
        <translation>변환기</translation>
    </message>
    <message>
        <source>a data type</source>
        <translation>데이터 형식</translation>
    </message>
    <message>
        <source>a label</source>
        <translation>레이블</translation>
    </message>
    <message>
        <source>a label, or an object with one</source>
        <translation>레이블 또는 레이블이 있는 객체</translation>
    </message>
    <message>
        <source>a model</source>
        <translation>모델</translation>
    </message>
    <message>
        <source>a node</source>
        <translation>노드</translation>
    </message>
    <message>
        <source>a scene</source>
        <translation>장면</translation>
    </message>
    <message>
        <source>a unique name</source>
        <translation>고유한 이름</translation>
    </message>
    <message>
        <source>an element</source>
        <translation>요소</translation>
    </message>
    <message>
        <source>an id</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>an input port</source>
        <translation>입력 포트</translation>
    </message>
    <message>
        <source>an output port</source>
        <translation>출력 포트</translation>
    </message>
    <message>
        <source>arrays of what it feeds</source>
        <translation>출력 대상의 배열들</translation>
    </message>
    <message>
        <source>the connections</source>
        <translation>연결 목록</translation>
    </message>
    <message>
        <source>the elements of a chain</source>
        <translation>체인의 요소들</translation>
    </message>
    <message>
        <source>the id of a type</source>
        <translation>형식의 ID</translation>
    </message>
    <message>
        <source>the id of the node that feeds</source>
        <translation>출력하는 노드의 ID</translation>
    </message>
    <message>
        <source>the id of the node that is fed</source>
        <translation>입력받는 노드의 ID</translation>
    </message>
    <message>
        <source>the label</source>
        <translation>레이블</translation>
    </message>
    <message>
        <source>the name of a model</source>
        <translation>모델의 이름</translation>
    </message>
    <message>
        <source>the nodes</source>
        <translation>노드 목록</translation>
    </message>
    <message>
        <source>the schema, for editors</source>
        <translation>편집기용 스키마</translation>
    </message>
    <message>
        <source>the settings of the model</source>
        <translation>모델의 설정</translation>
    </message>
    <message>
        <source>the short name of a type</source>
        <translation>형식의 짧은 이름</translation>
    </message>
    <message>
        <source>the sources of each input port</source>
        <translation>각 입력 포트의 소스</translation>
    </message>
    <message>
        <source>the sources of one input port</source>
        <translation>한 입력 포트의 소스</translation>
    </message>
    <message>
        <source>what it feeds</source>
        <translation>출력 대상</translation>
    </message>
    <message>
        <source>whether it is unique</source>
        <translation>고유한지 여부</translation>
    </message>
</context>
<context>
    <name>Host::SettingProperty</name>
    <message>
        <source>true or false</source>
        <translation>true 또는 false</translation>
    </message>
    <message>
        <source>a whole number</source>
        <translation>정수</translation>
    </message>
    <message>
        <source>a number</source>
        <translation>숫자</translation>
    </message>
    <message>
        <source>a string</source>
        <translation>문자열</translation>
    </message>
    <message>
        <source>one of %1</source>
        <translation>%1 중 하나</translation>
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
        <translation>%1 이상</translation>
    </message>
    <message>
        <source>%1 to %2, odd</source>
        <translation>%1~%2, 홀수</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1~%2</translation>
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
        <translation>이미지를 PNG로 만들 수 없습니다</translation>
    </message>
</context>
<context>
    <name>Host::attempt</name>
    <message>
        <source>%1 fails</source>
        <translation>%1: 실패했습니다</translation>
    </message>
    <message>
        <source>%1 throws: %2</source>
        <translation>%1: 예외가 발생했습니다: %2</translation>
    </message>
    <message>
        <source>%1 throws</source>
        <translation>%1: 예외가 발생했습니다</translation>
    </message>
</context>
</TS>
