ExecuteGlobal "Function added(x)" & vbLf & "added = x & ""+""" & vbLf & "End Function"
PrintString Eval("added(1)")             '> 1+
Set f = GetRef("later") : PrintString f(2, 3) '> 5
Function later(a, b)
later = a + b
End Function
PrintString later(1, 1)                  '> 2
ExecuteGlobal "Function later(a, b) : later = a * b : End Function"
PrintString later(4, 5) & f(4, 5)        '> 2020
Class C
Private x
Sub go
x = 1
Execute "x = x + 1 : x = x * 10"
PrintString x                            '> 20
End Sub
End Class
Set o = New C : o.go
On Error Resume Next
Execute "If"
PrintString Err.Number : Err.Clear       '> 1023
Execute "a = (1"
PrintString Err.Number                   '> 1006
PrintString Eval("2 = 2")                '> True
PrintString Eval(7)                      '> 7
Execute "Execute ""deep = 1"" : PrintString deep"  '> 1
Set f = Nothing : Set g = GetRef("nothing here") : PrintString Err.Number '> 5
