' Words that nobody declared, as a beginner's program has them.
Sub Main()
PrintString "[" & unknown & "]"          '> []
PrintString unknown + 1                  '> 1
unknown = unknown & "x"
PrintString unknown                      '> x
other
PrintString "[" & mine & "]"             '> []
On Error Resume Next
foo 1
PrintString Err.Number                   '> 13
Err.Clear
x = foo2(1)
PrintString Err.Number                   '> 13
Err.Clear
lonely
PrintString Err.Number                   '> 13
Err.Clear
Call foo3(1)
PrintString Err.Number                   '> 13
Err.Clear
unset.method
PrintString Err.Number                   '> 424
Err.Clear
other 1
PrintString Err.Number                   '> 450
Err.Clear
PrintString Len(1, 2)
PrintString Err.Number                   '> 450
Err.Clear
PrintString 1, 2
PrintString Err.Number                   '> 450
Err.Clear
n = Null
n.x = 1
PrintString Err.Number                   '> 424
Err.Clear
Set o = CreateObject("anything")
PrintString Err.Number                   '> 429
On Error Goto 0
lonely
'> error 13 line 41
End Sub
Sub other
mine = 5
End Sub
