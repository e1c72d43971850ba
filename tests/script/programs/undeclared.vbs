' Words that nobody declared, as a beginner's program has them.
Sub Main()
PrintString "[" & unknown & "]"          '> []
PrintString unknown + 1                  '> 1
unknown = unknown & "x" : PrintString unknown '> x
other : PrintString "[" & mine & "]"     '> []
On Error Resume Next
foo 1 : PrintString Err.Number : Err.Clear '> 13
x = foo2(1) : PrintString Err.Number : Err.Clear '> 13
lonely : PrintString Err.Number : Err.Clear '> 13
Call foo3(1) : PrintString Err.Number : Err.Clear '> 13
unset.method : PrintString Err.Number : Err.Clear '> 424
other 1 : PrintString Err.Number : Err.Clear '> 450
PrintString Len(1, 2) : PrintString Err.Number : Err.Clear '> 450
PrintString 1, 2 : PrintString Err.Number : Err.Clear '> 450
n = Null : n.x = 1 : PrintString Err.Number : Err.Clear '> 424
Set o = CreateObject("anything") : PrintString Err.Number '> 429
On Error Goto 0
lonely
'> error 13 line 19
End Sub
Sub other
mine = 5
End Sub
