' Names that Execute and ExecuteGlobal define while the code that uses them runs.
Dim where, declaredList(2)
where = "global"
On Error Resume Next
Nested : PrintString Err.Number : Err.Clear  '> 13
InProcedure                                  '> local
'> global
Nested : PrintString Err.Number : Err.Clear  '> 13
On Error GoTo 0
Execute "Sub Nested : PrintString where : End Sub"
Nested                                       '> global
ExecuteGlobal "Function Twice(x) : x = x * 2 : Twice = x : End Function"
amount = 4 : PrintString Twice(amount) & " " & amount '> 8 8
PrintString Twice((amount)) & " " & amount   '> 16 8
Execute "made = Array(1, 2, 3) : Const Limit = 12"
Twice made(1) : PrintString Join(made, "-") & Limit '> 1-4-312
ExecuteGlobal "Class Counter : Public Count : Sub Add(n) : Count = Count + n : End Sub : End Class"
Set counted = New Counter : counted.Add 3 : counted.Add Twice(2)
PrintString counted.Count                    '> 7
InSub
'> 336
'> 9!1!
'> called!
'> 104
'> 10,4,
'> 6
'> True
Counting
'> 6
'> 6
PrintString IsEmpty(onlyThere)               '> True
Redefined                                    '> old new
PrintString Outer(1)                         '> 111
Execute "Execute ""deep = 5"" : deep = deep + 1"
PrintString deep                             '> 6
Execute "Dim shared : shared = 1"
Execute "Dim shared"
PrintString shared : Err.Clear               '> 1
On Error Resume Next
Limit = 3 : PrintString Err.Number           '> 501
Twice = 3 : PrintString Err.Number           '> 501
Twice 1, 2 : PrintString Err.Number : Err.Clear '> 450
Set counted = New Countess : PrintString Err.Number '> 506

Sub InProcedure
  Dim where
  where = "local"
  Execute "Sub Nested : PrintString where : End Sub"
  PrintString Eval("where") : Nested
End Sub

Sub InSub
  Execute "Dim onlyThere : onlyThere = 1"
  onlyThere = onlyThere + 1
  Execute "onlyThere = onlyThere + 1 : alsoThere = onlyThere"
  PrintString onlyThere & alsoThere & Eval("onlyThere + alsoThere")
  Execute "Function Own(x) : Own = x & ""!"" : End Function : Const Fixed = 9"
  PrintString Own(Fixed) & Eval("Own(1)") : Set reference = GetRef("Own")
  PrintString reference("called")
  ExecuteGlobal "list = Array(3, 4)"
  list(0) = list(1) + 1 : Twice list(0) : PrintString list(0) & list(1)
  For Each element In list
    total = total & element & ","
  Next
  PrintString total
  For number = 1 To 3
    sum = sum + number
  Next
  PrintString sum : ReDim list(1) : PrintString IsEmpty(list(0))
End Sub

' A variable of its own, because nothing else has the name.
Sub Counting
  For step_ = 1 To 3
    onlyHere = onlyHere + step_
  Next
  PrintString onlyHere
  ExecuteGlobal "onlyHere = 100"
  PrintString onlyHere
End Sub

Sub Redefined
  ExecuteGlobal "Function Now_ : Now_ = ""old"" : End Function"
  text = Now_
  ExecuteGlobal "Function Now_ : Now_ = ""new"" : End Function"
  PrintString text & " " & Now_
End Sub

Function Outer(depth)
  If depth > 2 Then
    Execute "Outer = depth"
  Else
    Outer = Eval("Outer(depth + 1)") + 1
    If depth = 1 Then Outer = Outer + Eval("depth") + 105
  End If
End Function
